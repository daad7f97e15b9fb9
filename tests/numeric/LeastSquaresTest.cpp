#include "numeric/LeastSquares.h"

#include <gtest/gtest.h>

#include <cmath>
#include <numbers>

#include "doubles/Tolerances.h"
#include "numeric/MadeResiduals.h"

namespace vk {
namespace {

using Numbers = std::vector<double>;

double lineAt(std::span<const double> p, int j) {
  constexpr double kY[] = {3, 5.2, 6.9, 9.1};
  return p[0] + p[1] * j - kY[j];
}

TEST(LeastSquares, FindsTheLineAndItsCovariances) {
  MadeResiduals function(4, lineAt);
  const LeastSquaresResult result = leastSquares(function, {{0, 0}});
  EXPECT_EQ(result.end, LeastSquaresEnd::kConverged);
  EXPECT_NEAR(result.parameters[0], 3.05, kFewRoundings);
  EXPECT_NEAR(result.parameters[1], 2, kFewRoundings);
  EXPECT_NEAR(result.sum, 0.0025 + 0.0225 + 0.0225 + 0.0025, kLastBit);
  // The inverse of (4 6; 6 14).
  EXPECT_NEAR(result.covariance.at(1, 1), 0.7, kManyRoundings);
  EXPECT_NEAR(result.covariance.at(1, 2), -0.3, kManyRoundings);
  EXPECT_NEAR(result.covariance.at(2, 2), 0.2, kManyRoundings);
  EXPECT_EQ(result.residuals.size(), 4u);
}

TEST(LeastSquares, GoesThroughACurvedValley) {
  MadeResiduals valley(
      2, [](std::span<const double> p, int j) { return j == 0 ? 10 * (p[1] - p[0] * p[0]) : 1 - p[0]; });
  const LeastSquaresResult result = leastSquares(valley, {{-1.2, 1}});
  EXPECT_EQ(result.end, LeastSquaresEnd::kConverged);
  EXPECT_NEAR(result.parameters[0], 1, 1E-13);
  EXPECT_NEAR(result.parameters[1], 1, 1E-13);
}

/// Two minima: sum 1 at +1 and 1 + `more` at -1.
MadeResiduals twoMinima(double more) {
  return {3, [more](std::span<const double> p, int j) {
            const double side = 1 / (1 + 100 * (p[0] + 1) * (p[0] + 1));
            return j == 0 ? p[0] * p[0] - 1 : j == 1 ? 1.0 : std::sqrt(more) * side;
          }};
}

TEST(LeastSquares, OfTwoStartsTheLowerMinimumGoesOn) {
  MadeResiduals function = twoMinima(0.01);
  EXPECT_NEAR(leastSquares(function, {{-1.3}, {1.3}}).parameters[0], 1, kMinimum);
  EXPECT_NEAR(leastSquares(function, {{1.3}, {-1.3}}).parameters[0], 1, kMinimum);
}

TEST(LeastSquares, OfMinimaThatAreTheSameTheFirstStartsGoesOn) {
  MadeResiduals function = twoMinima(1E-8);
  EXPECT_NEAR(leastSquares(function, {{-1.3}, {1.3}}).parameters[0], -1, kThreeDigits);
  EXPECT_NEAR(leastSquares(function, {{1.3}, {-1.3}}).parameters[0], 1, kThreeDigits);
}

TEST(LeastSquares, CountsWhatBothStartsHaveTaken) {
  int calls = 0;
  MadeResiduals function(4, [&](std::span<const double> p, int j) {
    calls += j == 0 ? 1 : 0;
    return lineAt(p, j);
  });
  EXPECT_EQ(leastSquares(function, {{0, 0}, {9, 9}}).evaluations, calls);
}

TEST(LeastSquares, GoesRoundWhereAResidualFails) {
  // A root that the first steps would take below zero.
  MadeResiduals root(
      3, [](std::span<const double> p, int j) { return std::sqrt(p[0]) * (j + 1) - 0.01 * (j + 1); });
  const LeastSquaresResult result = leastSquares(root, {{4}});
  EXPECT_EQ(result.end, LeastSquaresEnd::kConverged);
  EXPECT_NEAR(result.parameters[0], 1E-4, kFewRoundings);
}

TEST(LeastSquares, TellsWhichResidualFailsAtTheStart) {
  MadeResiduals root(3, [](std::span<const double> p, int j) { return std::sqrt(p[0] - j); });
  const LeastSquaresResult result = leastSquares(root, {{1.5}});
  EXPECT_EQ(result.end, LeastSquaresEnd::kFailed);
  EXPECT_EQ(result.failed, 2u);
  EXPECT_EQ(result.parameters, Numbers{1.5});
  EXPECT_EQ(result.covariance.size(), 0);
}

TEST(LeastSquares, GetsNowhereFromASumThatOverflows) {
  MadeResiduals huge(3, [](std::span<const double> p, int j) { return 1E200 * p[0] * (j + 1) - 1E200; });
  const LeastSquaresResult result = leastSquares(huge, {{3}});
  EXPECT_EQ(result.end, LeastSquaresEnd::kNoProgress);
  EXPECT_EQ(result.covariance.size(), 0);
}

TEST(LeastSquares, PassesOverAStartThatFails) {
  MadeResiduals root(3, [](std::span<const double> p, int j) { return std::sqrt(p[0]) * (j + 1) - 2; });
  for (const auto& starts : {std::vector<Numbers>{{-1}, {3}}, {{3}, {-1}}}) {
    const LeastSquaresResult result = leastSquares(root, starts);
    EXPECT_EQ(result.end, LeastSquaresEnd::kConverged);
    EXPECT_NEAR(result.parameters[0], 144.0 / 196, kManyRoundings);
  }
}

TEST(LeastSquares, TellsParametersThatCannotBeToldApart) {
  MadeResiduals both(4,
                     [](std::span<const double> p, int j) { return (p[0] + p[1]) * j - 3 + 0.1 * (j % 2); });
  const LeastSquaresResult result = leastSquares(both, {{1, 2}});
  EXPECT_EQ(result.end, LeastSquaresEnd::kSingular);
  EXPECT_EQ(result.covariance.size(), 0);
}

TEST(LeastSquares, MoreParametersThanResidualsAreSingularWhereTheyStart) {
  MadeResiduals few(1, [](std::span<const double> p, int) { return p[0] + p[1]; });
  const LeastSquaresResult result = leastSquares(few, {{1, 2}});
  EXPECT_EQ(result.end, LeastSquaresEnd::kSingular);
  EXPECT_EQ(result.parameters, (Numbers{1, 2}));
  EXPECT_EQ(result.residuals, Numbers{3});
  EXPECT_EQ(result.sum, 9);
  EXPECT_EQ(result.evaluations, 1);
}

TEST(LeastSquares, VariancesBeyondTheRangeOfNumbersAreSingular) {
  for (const double slope : {1E-160, 1E160}) {
    MadeResiduals line(2, [&](std::span<const double> p, int j) { return slope * p[0] + (j == 0 ? 1 : -1); });
    const LeastSquaresResult result = leastSquares(line, {{1 / slope}});
    EXPECT_EQ(result.end, LeastSquaresEnd::kSingular) << slope;
    EXPECT_EQ(result.covariance.size(), 0) << slope;
  }
}

TEST(LeastSquares, TellsWhereNoStepLeadsOn) {
  // At a corner the derivatives by differences are not those of either side.
  MadeResiduals corner(
      2, [](std::span<const double> p, int j) { return j == 0 ? 1 + std::abs(p[0]) + 0.3 * p[0] : 1.0; });
  const LeastSquaresResult result = leastSquares(corner, {{3}});
  EXPECT_EQ(result.end, LeastSquaresEnd::kNoProgress);
}

TEST(LeastSquares, LooksAtNoOtherParameterWhereTheDerivativesByOneDoNotSettle) {
  MadeResiduals root(2, [](std::span<const double> p, int j) {
    return j == 0 ? std::copysign(std::sqrt(std::abs(p[0])), p[0]) : p[1] - 7;
  });
  const LeastSquaresResult result = leastSquares(root, {{0, 7}});
  EXPECT_EQ(result.end, LeastSquaresEnd::kNoProgress);
  EXPECT_NE(root.tried.back()[0], 0);
  EXPECT_EQ(root.tried.back()[1], 7);
}

TEST(LeastSquares, StaysAtAnEdgeBehindWhichAllFails) {
  MadeResiduals edge(3, [](std::span<const double> p, int j) { return std::sqrt(1 - p[0]) + j; });
  const LeastSquaresResult result = leastSquares(edge, {{1}});
  EXPECT_EQ(result.end, LeastSquaresEnd::kNoProgress);
  EXPECT_EQ(result.parameters, Numbers{1});
  EXPECT_EQ(result.covariance.size(), 0);
}

TEST(LeastSquares, LeavesAnEdgeByThePointsThatHaveADerivative) {
  MadeResiduals edge(3, [](std::span<const double> p, int j) {
    return j == 0 ? 0.01 * std::sqrt(1 - p[0]) : p[0] - 0.4 - 0.1 * j;
  });
  const LeastSquaresResult result = leastSquares(edge, {{1}});
  EXPECT_EQ(result.end, LeastSquaresEnd::kConverged);
  EXPECT_NEAR(result.parameters[0], 0.55, kThreeDigits);
}

TEST(LeastSquares, EndsAfterThirtyStepsThatAreHardlyShorterEach) {
  // Each undamped step leads from p to nearly 0.9 p, and the minimum is at 0.
  MadeResiduals slow(2,
                     [](std::span<const double> p, int j) { return j == 0 ? p[0] : 1 - 0.45 * p[0] * p[0]; });
  const LeastSquaresResult result = leastSquares(slow, {{1}});
  EXPECT_EQ(result.end, LeastSquaresEnd::kConverged);
  EXPECT_NEAR(result.parameters[0], 0, kSixDigits);
  EXPECT_GT(std::abs(result.parameters[0]), kManyRoundings);
}

TEST(LeastSquares, TellsWhenTheEvaluationsWereNotEnough) {
  // The sum falls for ever: each step is twice as long as the one before.
  MadeResiduals endless(
      2, [](std::span<const double> p, int j) { return j == 0 ? 1 / std::log(2 + std::abs(p[0])) : 0.0; });
  const LeastSquaresResult result = leastSquares(endless, {{1}});
  EXPECT_EQ(result.end, LeastSquaresEnd::kEvaluations);
}

TEST(LeastSquares, FindsAnExactSolution) {
  MadeResiduals exact(3, [](std::span<const double> p, int j) {
    return p[0] * std::exp(-p[1] * j) - 2 * std::exp(-0.5 * j);
  });
  const LeastSquaresResult result = leastSquares(exact, {{1, 1}});
  EXPECT_EQ(result.end, LeastSquaresEnd::kConverged);
  EXPECT_NEAR(result.parameters[0], 2, kFewRoundings);
  EXPECT_NEAR(result.parameters[1], 0.5, kFewRoundings);
}

TEST(LeastSquares, FindsParametersThatAreZeroInAnExactSolution) {
  for (const double start : {0.0, 1.0, -3.0}) {
    for (const double error : {1E-6, 1.0, 1E6}) {
      MadeResiduals line(7, [&](std::span<const double> p, int j) {
        const double x = 0.5 + 9 * j / 6.0;
        return (p[0] / x + p[1] - 3 / x) / error;
      });
      const LeastSquaresResult result = leastSquares(line, {{2.7, start}});
      EXPECT_EQ(result.end, LeastSquaresEnd::kConverged) << start << ", " << error;
      EXPECT_NEAR(result.parameters[1], 0, kFewRoundings);
      EXPECT_GT(result.covariance.size(), 0) << start << ", " << error;
    }
  }
}

// ---- Invariances

TEST(LeastSquares, DoesNotDependOnUnitsOrOnTheOrderOfParameters) {
  const auto decay = [](double A, double B, double C, int j) {
    constexpr double kY[] = {6.1, 4.0, 2.9, 2.2, 1.75, 1.5};
    return A * std::exp(-B * j) + C - kY[j];
  };
  MadeResiduals plain(6, [&](std::span<const double> p, int j) { return decay(p[0], p[1], p[2], j); });
  MadeResiduals turned(
      6, [&](std::span<const double> p, int j) { return decay(1E6 * p[2], 1E-5 * p[0], 1E-3 * p[1], j); });
  const LeastSquaresResult a = leastSquares(plain, {{4, 1, 0.5}});
  const LeastSquaresResult b = leastSquares(turned, {{1E5, 500, 4E-6}});
  ASSERT_EQ(a.end, LeastSquaresEnd::kConverged);
  ASSERT_EQ(b.end, LeastSquaresEnd::kConverged);
  EXPECT_NEAR(b.parameters[2] * 1E6 / a.parameters[0], 1, kIterated);
  EXPECT_NEAR(b.parameters[0] * 1E-5 / a.parameters[1], 1, kIterated);
  EXPECT_NEAR(b.covariance.deviation(3) * 1E6 / a.covariance.deviation(1), 1, 1E-7);
  EXPECT_NEAR(b.covariance.correlation().at(3, 1), a.covariance.correlation().at(1, 2), 1E-7);
}

}  // namespace
}  // namespace vk
