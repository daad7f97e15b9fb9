#include "analysis/AnalyticErrors.h"

#include <cmath>

#include "doubles/Tolerances.h"
#include "tests/analysis/ModelFixture.h"

namespace vk {
namespace {

class AnalyticErrorsTest : public ModelTest {
 protected:
  AnalyticErrors errors() { return analyticErrors(model, par, listener); }
};

TEST_F(AnalyticErrorsTest, TakesCentralDifferencesOfAThousandthOfTheValue) {
  load("a", "a*a*a");
  set(1, 2, 0);
  // ((p+h)^3 - (p-h)^3) / 2h = 3 p^2 + h^2
  EXPECT_NEAR(errors().Derivatives[1], 12 + 0.002 * 0.002, kManyRoundings);
  set(1, 0, 0);
  EXPECT_NEAR(errors().Derivatives[1], 0.001 * 0.001, 1E-18);
}

TEST_F(AnalyticErrorsTest, ANegativeValueStepsBackwards) {
  load("a", "a*a*a");
  set(1, -2, 0);
  EXPECT_NEAR(errors().Derivatives[1], 12 + 0.002 * 0.002, kManyRoundings);
}

TEST_F(AnalyticErrorsTest, TheIndependentVariableIsNumberZero) {
  loadLine();
  set(0, 4, -0.5);
  set(1, 3, 0);
  set(2, 1, 0);
  const AnalyticErrors result = errors();
  EXPECT_EQ(result.F0, 13);
  EXPECT_EQ(result.Derivatives.upper(), 2);
  EXPECT_NEAR(result.Derivatives[0], 3, kDerived);
  EXPECT_NEAR(result.Derivatives[1], 4, kDerived);
  EXPECT_NEAR(result.Derivatives[2], 1, kDerived);
  EXPECT_NEAR(result.ErrorMax, 1.5, kDerived);
}

TEST_F(AnalyticErrorsTest, AMaximumErrorIsUniform) {
  loadLine();
  set(0, 1, 0);
  set(1, 3, -0.25);
  set(2, 1, 0);
  par.ParValues[0] = -7;
  EXPECT_NEAR(errors().ErrorMax, 7 * 0.25, kDerived);
  EXPECT_NEAR(errors().ErrorSigma, 7 * 0.25 / std::sqrt(3), kDerived);
}

TEST_F(AnalyticErrorsTest, AStandardDeviationCountsThreefoldAsMaximum) {
  loadLine();
  set(0, 1, 0);
  set(1, 3, 0.25);
  set(2, 1, 0);
  par.ParValues[0] = -7;
  EXPECT_NEAR(errors().ErrorSigma, 7 * 0.25, kDerived);
  EXPECT_NEAR(errors().ErrorMax, 3 * 7 * 0.25, kDerived);
}

TEST_F(AnalyticErrorsTest, ContributionsAddUpAndVariancesInSquares) {
  loadLine();
  set(0, 2, 0.1);   // slope 3
  set(1, 3, -0.3);  // slope 2
  set(2, 1, 0.5);   // slope 1
  const AnalyticErrors result = errors();
  EXPECT_NEAR(result.ErrorMax, 3 * 0.3 + 0.6 + 3 * 0.5, kDerived);
  EXPECT_NEAR(result.ErrorSigma, std::sqrt(0.09 + 0.36 / 3 + 0.25), kDerived);
}

TEST_F(AnalyticErrorsTest, LeavesTheValuesAsTheyWere) {
  loadLine();
  set(0, 2, 0.1);
  set(1, 1.0 / 3, -0.3);
  set(2, 0, 0.5);
  const Array<double> before = par.ParValues;
  errors();
  EXPECT_EQ(par.ParValues, before);
}

TEST_F(AnalyticErrorsTest, QUIRK_OnlyTheLastEvaluationLeavesItsFailure) {
  load("a,b", "LOG(a)+b");
  set(1, -1, 0);
  set(2, 1, 0);
  EXPECT_TRUE(errors().failed);
  load("a,b", "SQR(a)+b");
  set(1, 0, 0);
  set(2, 1, 0);
  EXPECT_FALSE(errors().failed);
}

TEST_F(AnalyticErrorsTest, AValueAtTheEndOfTheRangeIsShiftedOneWayOnly) {
  load("a,b", "a/1E300+b");
  set(1, 1.797E308, 0);
  set(2, 1, 0);
  const AnalyticErrors result = errors();
  // The shift upward fails and leaves the value itself.
  EXPECT_NEAR(result.Derivatives[1], 1E-300 / 2, 1E-304);
  EXPECT_FALSE(result.failed);
}

}  // namespace
}  // namespace vk
