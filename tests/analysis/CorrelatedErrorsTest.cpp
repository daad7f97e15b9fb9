#include "analysis/CorrelatedErrors.h"

#include <cmath>

#include "analysis/Propagation.h"
#include "commands/RandomSource.h"
#include "doubles/Tolerances.h"
#include "platform/system/SystemRandom.h"
#include "tests/analysis/CorrelatedPair.h"
#include "tests/analysis/ModelFixture.h"

namespace vk {
namespace {

double deviate(int) {
  return 1;
}

TEST(CorrelatedErrors, BelongToTheirVariables) {
  const CorrelatedErrors none;
  EXPECT_TRUE(none.empty());
  EXPECT_FALSE(none.has(0));
  const CorrelatedErrors errors = correlatedErrors({1, 3}, {2, 5}, 0.6);
  EXPECT_FALSE(errors.empty());
  for (int i = 0; i <= 5; ++i) EXPECT_EQ(errors.has(i), i == 1 || i == 3) << i;
}

TEST(CorrelatedErrors, TakeTheDeviatesOfVariablesBeforeThem) {
  const CorrelatedErrors errors = correlatedErrors({1, 3}, {2, 5}, 0.6);
  EXPECT_DOUBLE_EQ(errors.error(1, deviate), 2);
  EXPECT_DOUBLE_EQ(errors.error(3, deviate), 5 * (0.6 + 0.8));
}

TEST(CorrelatedErrors, MakeTheDeviationOfAFunction) {
  const CorrelatedErrors errors = correlatedErrors({0, 2}, {2, 5}, 0.6);
  Array<double> derivatives(2);
  derivatives[0] = 3, derivatives[1] = 1000, derivatives[2] = -1;
  EXPECT_DOUBLE_EQ(errors.deviation(derivatives), std::sqrt(36 + 25 - 2 * 0.6 * 6 * 5));
}

TEST(CorrelatedErrors, MayLeaveNothing) {
  Array<double> derivatives(1);
  derivatives[0] = 5, derivatives[1] = -2;
  EXPECT_EQ(correlatedErrors({0, 1}, {2, 5}, 1).deviation(derivatives), 0);
}

/// A and k of a decay, whose errors grow together, and a factor b of its own.
class CorrelatedPropagationTest : public ModelTest {
 protected:
  CorrelatedPropagationTest() {
    load("A,k,b", "A/k*b");
    set(0, 0, 0), set(1, 514, 14.1), set(2, 0.309, 0.00955), set(3, 1, 0);
    par.correlated = correlatedErrors({1, 2}, {14.1, 0.00955}, 0.7467);
  }

  PropagationResult propagated(float seed = 1) {
    struct : PropagationObserver {
      void derived(const AnalyticErrors&) override {}
      void simulationBegins() override {}
      void sampled(const SampleStatistics&) override {}
    } observer;
    SystemRandom random;
    random.seed(seed);
    RandomSource source(random);
    return PropagateErrors(model, par, source, listener, observer);
  }
  /// Mean and spread of the samples are those of the derivatives within four of their own deviations.
  void expectAgreement() {
    for (float seed = 1; seed <= 3; ++seed) {
      const PropagationResult result = propagated(seed);
      ASSERT_EQ(result.end, PropagationEnd::kCompleted);
      const double sigma = result.analytic.ErrorSigma, root = std::sqrt(MonteCarlo::kSamples);
      // The curvature of 1/k moves the mean by at most a tenth of sigma.
      EXPECT_NEAR(result.samples.mean, result.analytic.F0, 4 * sigma / root + 0.1 * sigma);
      EXPECT_NEAR(result.samples.spread, sigma, 4 * sigma / root / std::sqrt(2) + 0.01 * sigma);
    }
  }
};

TEST_F(CorrelatedPropagationTest, ARatioIsKnownBetterThanItsParts) {
  const double ratio = 514 / 0.309, a = 14.1 / 514, k = 0.00955 / 0.309;
  const AnalyticErrors errors = propagated().analytic;
  EXPECT_NEAR(errors.ErrorSigma, ratio * std::sqrt(a * a + k * k - 2 * 0.7467 * a * k), kThreeDigits);
  EXPECT_NEAR(errors.ErrorSigma, 35, 1);
  EXPECT_NEAR(errors.ErrorMax, 3 * errors.ErrorSigma, kIterated);
  expectAgreement();
  par.correlated = {};
  EXPECT_NEAR(propagated().analytic.ErrorSigma, 69, 1);
}

TEST_F(CorrelatedPropagationTest, OtherErrorsComeOnTop) {
  par.correlated = correlatedErrors({1, 2}, {14.1, 0.00955}, 1);
  const double before = propagated().analytic.ErrorSigma;
  set(3, 1, 0.02);
  const AnalyticErrors errors = propagated().analytic;
  EXPECT_NEAR(errors.ErrorSigma, std::hypot(before, 0.02 * errors.F0), kMinimum);
  EXPECT_NEAR(errors.ErrorMax, 3 * (before + 0.02 * errors.F0), kMinimum);
  expectAgreement();
}

TEST_F(CorrelatedPropagationTest, ErrorsThatAreOppositeAddUp) {
  par.correlated = correlatedErrors({1, 2}, {14.1, 0.00955}, -1);
  EXPECT_NEAR(propagated().analytic.ErrorSigma, 514 / 0.309 * (14.1 / 514 + 0.00955 / 0.309), kThreeDigits);
  expectAgreement();
}

TEST_F(CorrelatedPropagationTest, WithoutACorrelationNothingChanges) {
  par.correlated = {};
  const PropagationResult independent = propagated();
  par.correlated = correlatedErrors({1, 2}, {14.1, 0.00955}, 0);
  const PropagationResult result = propagated();
  EXPECT_NEAR(result.analytic.ErrorSigma, independent.analytic.ErrorSigma, kIterated);
  EXPECT_NEAR(result.samples.mean, independent.samples.mean, kIterated);
  EXPECT_NEAR(result.samples.spread, independent.samples.spread, kIterated);
}

TEST_F(CorrelatedPropagationTest, NewErrorsAreIndependent) {
  StoreParameters(par, std::vector(4, 1.0), std::vector(4, 0.1), 0);
  EXPECT_TRUE(par.correlated.empty());
}

}  // namespace
}  // namespace vk
