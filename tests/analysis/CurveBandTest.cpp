#include "analysis/CurveBand.h"

#include <gmock/gmock.h>

#include <array>
#include <cmath>

#include "analysis/FitFixture.h"
#include "doubles/Tolerances.h"
#include "numeric/SampleValues.h"

namespace vk {
namespace {

constexpr double kNear = kByDifferences;

/// A line through points whose errors differ, at its minimum, with the covariances of b and c.
class CurveBandTest : public testing::Test {
 protected:
  CurveBandTest() {
    fit.data({4, 0, 2}, {9, 1, 5}, {0.4, 0.2, 0.6});
    fit.start({2, 1});
    covariance.set(1, 1, 0.04);
    covariance.set(2, 2, 0.25);
    covariance.set(1, 2, -0.06);
  }
  std::optional<BandWidths> widths(const CurveBand& band, std::vector<double> x) {
    return bandWidths(fit.problem(), fit.par, band, x);
  }

  FitCase fit{"b*x+c", "b,c"};
  CovarianceMatrix covariance{2};
};

TEST_F(CurveBandTest, IsTheErrorOfTheValueOfTheFunction) {
  const auto band = widths({covariance, 1, false}, {0, 1, 5});
  ASSERT_TRUE(band.has_value());
  EXPECT_NEAR(band->confidence[0], 0.5, kNear);
  EXPECT_NEAR(band->confidence[1], std::sqrt(0.04 + 0.25 - 0.12), kNear);
  EXPECT_NEAR(band->confidence[2], std::sqrt(25 * 0.04 + 0.25 - 0.6), kNear);
  EXPECT_TRUE(band->prediction.empty());
  EXPECT_THAT(band->values, testing::ElementsAre(1, 3, 11));
}

TEST_F(CurveBandTest, OfAPredictionHasTheErrorOfAPointTooBetweenItsNeighbours) {
  const auto band = widths({covariance, 2, true}, {-1, 0, 1, 3, 4, 9});
  ASSERT_TRUE(band.has_value());
  constexpr std::array kErrors{0.2, 0.2, 0.4, 0.5, 0.4, 0.4};
  for (std::size_t k = 0; k < kErrors.size(); ++k) {
    EXPECT_NEAR(band->prediction[k], std::hypot(band->confidence[k], 2 * kErrors[k]), kNear) << k;
  }
}

TEST_F(CurveBandTest, TakesTheEffectiveErrorsOfDataWithErrorsInX) {
  fit.data({0, 2, 4}, {1, 5, 9}, {0.1, 0.1, 0.1}, {0.2, 0.2, 0.2});
  for (int j = 1; j <= 3; ++j) fit.points.ErrEff[j] = 0.7;
  const auto band = widths({covariance, 1, true}, {0});
  EXPECT_NEAR(band->prediction[0], std::hypot(0.5, 0.7), kNear);
}

TEST_F(CurveBandTest, LeavesConstantParametersOut) {
  fit.start({2, 1}, "b");
  CovarianceMatrix ofC(1);
  ofC.set(1, 1, 0.25);
  const auto band = widths({ofC, 3, false}, {-7, 12});
  EXPECT_NEAR(band->confidence[0], 1.5, kNear);
  EXPECT_NEAR(band->confidence[1], 1.5, kNear);
}

TEST(CurveBand, HasAGapWhereTheFunctionHasNoValue) {
  FitCase fit("a*LOG(x)", "a");
  fit.data({1, 2, 3}, {1, 2, 3}, {1, 1, 1});
  fit.start({2});
  CovarianceMatrix ofA(1);
  ofA.set(1, 1, 4);
  const auto band = bandWidths(fit.problem(), fit.par, {ofA, 1, true}, std::array{-1.0, std::exp(1.0)});
  ASSERT_TRUE(band.has_value());
  EXPECT_TRUE(std::isnan(band->confidence[0]));
  EXPECT_TRUE(std::isnan(band->prediction[0]));
  EXPECT_NEAR(band->confidence[1], 2, kNear);
}

TEST(CurveBand, IsMissingWhereDerivativesDoNotSettle) {
  FitCase fit("SQR(x-c)", "c");
  fit.data({1, 5, 9}, {0, 2, 3}, {1, 1, 1});
  fit.start({1});
  CovarianceMatrix ofC(1);
  ofC.set(1, 1, 1);
  EXPECT_FALSE(bandWidths(fit.problem(), fit.par, {ofC, 1, false}, std::array{1.0, 2.0}).has_value());
}

TEST(IntervalFactor, IsThatOfTheNormalDistributionOfAKnownDeviation) {
  EXPECT_NEAR(intervalFactor(68.26894921, 0), 1, kMinimum);
  EXPECT_NEAR(intervalFactor(95, 0), 1.959963985, 2E-6);
}

TEST(IntervalFactor, IsStudentsForADeviationFromTheScatter) {
  // Tables of Student's distribution, two-sided 95 per cent; the first is tan(0.95 pi / 2), by CurveBandTest.py.
  EXPECT_NEAR(intervalFactor(95, 1), 12.7062, kThreeDigits);
  EXPECT_NEAR(intervalFactor(95, 3), 3.18245, kSixDigits);
  EXPECT_NEAR(intervalFactor(95, 30), 2.04227, kSixDigits);
  EXPECT_NEAR(intervalFactor(95, 30000), 1.95999, 1E-4);
}

TEST(IntervalFactor, IsNearlyTheNormalOneForVeryManyDegreesOfFreedom) {
  for (const int freedom : {1'000'000, 100'000'000, 2'000'000'000})
    EXPECT_NEAR(intervalFactor(95, freedom), 1.959963985, 1E-4) << freedom;
}

}  // namespace
}  // namespace vk
