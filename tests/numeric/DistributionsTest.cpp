#include "numeric/Distributions.h"

#include <cmath>
#include <functional>

#include "doubles/Tolerances.h"
#include "numeric/KernelLog.h"

namespace vk {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

/// The series behind the logarithm of the gamma function is good for this relative error.
constexpr double kDensityAccuracy = 2e-9;

/// A value that has no fault.
double good(const Evaluation& evaluation) {
  EXPECT_EQ(evaluation.fault, Fault::kNone);
  return evaluation.value;
}

/// The distributions with what their kernels tell; none may be exhausted where a test does not say so.
class DistributionsTest : public testing::Test {
 protected:
  ~DistributionsTest() override { EXPECT_THAT(log.kernels, IsEmpty()); }

  KernelLog log;
};

TEST_F(DistributionsTest, TheCumulativeBinomialIsTheSumOfItsDensities) {
  constexpr int kDraws = 12;
  double sum = 0;
  for (int k = 0; k <= kDraws; ++k) {
    sum += good(binomialDensity(k, kDraws, 0.3));
    EXPECT_NEAR(good(binomialCumulative(k, kDraws, 0.3, log)), sum, kKernelAccuracy) << k;
  }
  EXPECT_NEAR(sum, 1, kDensityAccuracy);
  EXPECT_EQ(binomialCumulative(kDraws + 1, kDraws, 0.3, log).fault, Fault::kDomain);
}

TEST_F(DistributionsTest, TheCumulativePoissonIsTheSumOfItsDensities) {
  double sum = 0;
  for (int x = 0; x <= 30; ++x) {
    sum += good(poissonDensity(x, 4.5));
    EXPECT_NEAR(good(poissonCumulative(x, 4.5, log)), sum, kKernelAccuracy) << x;
  }
  EXPECT_NEAR(sum, 1, kDensityAccuracy);
}

TEST_F(DistributionsTest, TheNormalOneIsThatOfTheErrorFunction) {
  for (const double z : {-4.0, -1.5, -0.1, 0.0, 0.7, 2.0, 5.0}) {
    const double below = std::erfc(-z / std::sqrt(2)) / 2;
    EXPECT_NEAR(good(normalCumulative(3 + 2 * z, 3, 2)), below, 7.5e-8) << z;
    EXPECT_NEAR(good(normalLowerTail(z)), below, 7.5e-8) << z;
    EXPECT_NEAR(good(normalUpperTail(z)), 1 - below, 7.5e-8) << z;
    EXPECT_NEAR(good(normalCentralArea(z)), std::erf(std::abs(z) / std::sqrt(2)), 1.5e-7) << z;
    const double density = std::exp(-z * z / 2) / std::sqrt(2 * 3.14159265358979) / 2;
    EXPECT_NEAR(good(normalDensity(3 + 2 * z, 3, 2)) / density, 1, 5e-8) << z;
  }
  EXPECT_EQ(normalDensity(3, 1, 0).fault, Fault::kDomain);
  EXPECT_EQ(normalCumulative(3, 1, 0).fault, Fault::kDomain);
}

TEST_F(DistributionsTest, ChiSquareOfFourDegreesIsElementary) {
  for (const double x : {0.01, 0.5, 2.0, 4.0, 9.0, 30.0}) {
    const double tail = std::exp(-x / 2);
    EXPECT_NEAR(good(chiSquareCumulative(x, 4, log)), 1 - tail * (1 + x / 2), kKernelAccuracy) << x;
    EXPECT_NEAR(good(chiSquareDensity(x, 4)) / (tail * x / 4), 1, kDensityAccuracy) << x;
  }
}

TEST_F(DistributionsTest, StudentOfOneAndOfTwoDegreesIsElementary) {
  constexpr double kPi = 3.14159265358979;
  for (const double x : {-20.0, -1.0, -0.25, 0.5, 1.0, 3.0, 40.0}) {
    EXPECT_NEAR(good(studentCumulative(x, 1, log)), 0.5 + std::atan(x) / kPi, kKernelAccuracy) << x;
    EXPECT_NEAR(good(studentCumulative(x, 2, log)), 0.5 + x / (2 * std::sqrt(2 + x * x)), kKernelAccuracy)
        << x;
    // The eight digits of pi are the larger error.
    EXPECT_NEAR(good(studentDensity(x, 1)) * (kPi * (1 + x * x)), 1, 2e-8) << x;
    EXPECT_NEAR(good(studentDensity(x, 2)) * std::pow(2 + x * x, 1.5), 1, 2e-8) << x;
  }
}

TEST_F(DistributionsTest, FisherOfTwoDegreesAboveIsElementary) {
  for (const double x : {0.01, 0.5, 1.0, 3.0, 50.0}) {
    const double below = 1 / (1 + x / 2);
    EXPECT_NEAR(good(fisherCumulative(x, 2, 4, log)), 1 - below * below, kKernelAccuracy) << x;
    EXPECT_NEAR(good(fisherDensity(x, 2, 4)) / (below * below * below), 1, kDensityAccuracy) << x;
  }
}

TEST_F(DistributionsTest, CountsAndDegreesHaveNoSign) {
  EXPECT_EQ(binomialDensity(-2, -5, -0.3), binomialDensity(2, 5, 0.3));
  EXPECT_EQ(binomialCumulative(-2, -5, -0.3, log), binomialCumulative(2, 5, 0.3, log));
  EXPECT_EQ(poissonDensity(-3, -2.5), poissonDensity(3, 2.5));
  EXPECT_EQ(poissonCumulative(-3, -2.5, log), poissonCumulative(3, 2.5, log));
  EXPECT_EQ(chiSquareDensity(-3, -4), chiSquareDensity(3, 4));
  EXPECT_EQ(chiSquareCumulative(-3, -4, log), chiSquareCumulative(3, 4, log));
  EXPECT_EQ(studentDensity(2, -5), studentDensity(2, 5));
  EXPECT_EQ(studentCumulative(2, -5, log), studentCumulative(2, 5, log));
  EXPECT_EQ(fisherDensity(-2, -3, -4), fisherDensity(2, 3, 4));
  EXPECT_EQ(fisherCumulative(-2, -3, -4, log), fisherCumulative(2, 3, 4, log));
}

TEST_F(DistributionsTest, WhatMeetsAZeroHasItsLimitOrAFault) {
  EXPECT_EQ(binomialCumulative(0, 3, 2, log), Evaluation{0}) << "p is at most 1";
  EXPECT_EQ(poissonDensity(0, 0), Evaluation{1});
  EXPECT_EQ(poissonDensity(1, 0), Evaluation{0});
  EXPECT_EQ(poissonCumulative(7, 0, log), Evaluation{1});
  EXPECT_NEAR(good(chiSquareDensity(0, 2)), 0.5, kDensityAccuracy);
  EXPECT_NEAR(good(studentCumulative(0, 5, log)), 0.5, kKernelAccuracy);
  EXPECT_EQ(chiSquareCumulative(1, 0, log).fault, Fault::kDomain);
  EXPECT_EQ(studentCumulative(1, 0, log).fault, Fault::kDomain);
  EXPECT_EQ(fisherCumulative(1, 0, 0, log).fault, Fault::kDomain);
}

TEST_F(DistributionsTest, ToldOfAnExhaustedKernelOnceAndInTheFault) {
  const auto expectExhausted = [&](const Evaluation& evaluation, Kernel kernel) {
    EXPECT_EQ(evaluation.fault, Fault::kExhausted);
    EXPECT_THAT(log.kernels, ElementsAre(kernel));
    log.kernels.clear();
  };
  expectExhausted(chiSquareCumulative(800, 800, log), Kernel::kGammaSeries);
  expectExhausted(chiSquareCumulative(20004, 20000, log), Kernel::kGammaFraction);
  expectExhausted(poissonCumulative(1000, 1000, log), Kernel::kGammaSeries);
  expectExhausted(fisherCumulative(1, 200000, 200000, log), Kernel::kBetaFraction);
}

}  // namespace
}  // namespace vk
