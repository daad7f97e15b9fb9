#include <cmath>

#include "doubles/Tolerances.h"
#include "numeric/SampleFits.h"

namespace vk {
namespace {

// ---- Solutions that are known otherwise -------------------------------------------------------------------

TEST(Minimise, FindsTheWeightedMean) {
  // Weights 1, 1/4, 1: (1 + 3/4 + 8) / (9/4).
  ModelResiduals residuals(constant, {0, 1, 2}, {1, 3, 8}, {1, 2, 1});
  const Fit fit = minimise(residuals, {1}, {0.01});
  EXPECT_NEAR(fit.X[0], 9.75 / 2.25, kMinimum);
  EXPECT_EQ(fit.result.end, MinimiseEnd::kCompleted);
}

TEST(Minimise, FindsTheStraightLineOfTheNormalEquations) {
  // Sums: n 5, x 15, xx 55, y 30.1, xy 110.2.
  ModelResiduals residuals = lineProblem();
  const Fit fit = minimise(residuals, {1, 1}, {0.01, 0.01});
  const double slope = (5 * 110.2 - 15 * 30.1) / (5 * 55 - 15 * 15);
  EXPECT_NEAR(fit.X[0], slope, kMinimum);
  EXPECT_NEAR(fit.X[1], (30.1 - slope * 15) / 5, kMinimum);
  EXPECT_NEAR(fit.result.FS, 10.7, kMinimum);
  EXPECT_EQ(fit.result.end, MinimiseEnd::kCompleted);
}

TEST(Minimise, FindsTheParabolaOfTheNormalEquations) {
  ModelResiduals residuals(square, {-2, -1, 0, 1, 2}, {9.1, 4.2, 1.0, 0.1, 1.2}, Values(5, 0.1));
  const Fit fit = minimise(residuals, {0, 0, 0}, {0.01, 0.01, 0.01});
  // Orthogonal polynomials over -2..2: sum y 15.6, sum xy -19.9, sum (xx - 2) y 14.3 over 14.
  const double a = (2 * 9.1 - 4.2 - 2 * 1.0 - 0.1 + 2 * 1.2) / 14;
  EXPECT_NEAR(fit.X[0], a, kMinimum);
  EXPECT_NEAR(fit.X[1], (-2 * 9.1 - 4.2 + 0.1 + 2 * 1.2) / 10, kMinimum);
  EXPECT_NEAR(fit.X[2], 15.6 / 5 - 2 * a, kMinimum);
}

// By many restarts with the smallest accuracies.
Values trueMinimum(ModelResiduals residuals, Values X) {
  for (int round = 0; round < 12; ++round) {
    Values tight;
    for (double value : X) tight.push_back(std::abs(value) * 1E-5);
    X = minimise(residuals, X, tight).X;
  }
  return X;
}

void expectNearTrueMinimum(const ModelResiduals& problem, const Values& start) {
  ModelResiduals residuals = problem;
  const Fit fit = minimise(residuals, start, hundredths(start));
  const Values best = trueMinimum(problem, fit.X);
  ModelResiduals again = problem;
  Values F(static_cast<std::size_t>(problem.points()));
  double least = 0;
  again.ComputeResiduals(best, F, F, least);
  ASSERT_EQ(fit.result.end, MinimiseEnd::kCompleted);
  for (std::size_t i = 0; i < best.size(); ++i) {
    EXPECT_NEAR(fit.X[i], best[i], 0.05 * fit.result.errors[static_cast<int>(i) + 1])
        << "parameter " << i + 1;
  }
  EXPECT_NEAR(fit.result.FS, least, 1E-4 * least);
}

TEST(Minimise, ComesNearTheTrueMinimumOfAnExponentialDecay) {
  expectNearTrueMinimum(noisy(decay, {10, 0.5, 1}, 0, 0.25, 40, 0.2), {7, 0.8, 0});
  expectNearTrueMinimum(noisy(decay, {10, 0.5, 1}, 0, 0.25, 40, 0.02), {7, 0.8, 0.5});
}

TEST(Minimise, ComesNearTheTrueMinimumOfABellCurve) {
  expectNearTrueMinimum(noisy(bell, {5, 3, 0.7}, 0, 0.2, 31, 0.1), {4, 2.6, 1});
  expectNearTrueMinimum(noisy(bell, {500, 30, 4}, 10, 1, 41, 20), {400, 27, 6});
}

// ---- A whole run, number for number -----------------------------------------------------------------------
// The figures come from MinimiseTest.py, a plain transcription of the procedure; the model needs only the four
// operations, so that every machine gets the same digits.

TEST(Minimise, FollowsItsProcedureStepByStep) {
  ModelResiduals residuals = hyperbolaProblem();
  const Fit fit = minimise(residuals, {1.5, 1}, {0.015, 0.01});
  EXPECT_DOUBLE_EQ(fit.X[0], 2.0805954836287404);
  EXPECT_DOUBLE_EQ(fit.X[1], 0.53369580357610813);
  EXPECT_DOUBLE_EQ(fit.E[0], 0.0081216532446955446);
  EXPECT_DOUBLE_EQ(fit.E[1], 0.0065267400351586248);
  EXPECT_DOUBLE_EQ(fit.result.errors[1], 0.093972232058005464);
  EXPECT_DOUBLE_EQ(fit.result.errors[2], 0.068786161419700648);
  EXPECT_DOUBLE_EQ(fit.result.correlation.at(2, 1), 0.65493220289590792);
  EXPECT_DOUBLE_EQ(fit.result.FS, 0.60152720262819992);
  EXPECT_EQ(fit.result.iterations, 1);
  EXPECT_EQ(fit.result.passes, 3);
  EXPECT_EQ(fit.result.evaluations, 42);
  EXPECT_EQ(fit.result.evaluations, residuals.calls());
  EXPECT_EQ(fit.result.TooCoarse, kFalse);
}

TEST(Minimise, TriesThePointsOfItsSearchesInOrder) {
  // N = 1, F = X - y: the step is -1 times the distance to the mean; half a step uphill, half a step back,
  // the whole step. Then the direction is orthogonal to the residuals, and the step vanishes.
  ModelResiduals residuals(constant, {0, 1, 2}, {1, 2, 3}, {1, 1, 1});
  const Fit fit = minimise(residuals, {1}, {1.0 / 32});
  ASSERT_EQ(residuals.tried.size(), 6U);
  const double expected[] = {1, 1 + 1.0 / 32, 0.5, 1.5, 2, 2};
  for (std::size_t k = 0; k < 6; ++k) EXPECT_NEAR(residuals.tried[k][0], expected[k], kFewRoundings) << k;
  EXPECT_EQ(fit.result.iterations, 2);
  EXPECT_EQ(fit.result.passes, 1);
  EXPECT_NEAR(fit.result.errors[1], 1 / std::sqrt(3), kManyRoundings);
}

// ---- Failing residuals ------------------------------------------------------------------------------------

TEST(Minimise, EndsAtOnceWhenTheFirstResidualsFail) {
  ModelResiduals residuals = lineProblem();
  residuals.failAt(1);
  const Fit fit = minimise(residuals, {1, 1}, {0.01, 0.01});
  EXPECT_EQ(fit.result.end, MinimiseEnd::kResidualsFailed);
  EXPECT_EQ(residuals.calls(), 1);
  EXPECT_THAT(fit.X, testing::ElementsAre(1, 1));
}

TEST(Minimise, LeavesThePointTriedLastWhenADifferenceFails) {
  ModelResiduals residuals = lineProblem();
  residuals.failAt(2);
  const Fit fit = minimise(residuals, {1, 1}, {0.01, 0.01});
  EXPECT_EQ(fit.result.end, MinimiseEnd::kResidualsFailed);
  EXPECT_THAT(fit.X, testing::ElementsAre(1.01, 1));
}

TEST(Minimise, LeavesThePointTriedLastWhenASearchFails) {
  ModelResiduals residuals(constant, {0, 1, 2}, {1, 2, 3}, {1, 1, 1});
  residuals.failAt(4);
  const Fit fit = minimise(residuals, {1}, {1.0 / 32});
  EXPECT_EQ(fit.result.end, MinimiseEnd::kResidualsFailed);
  EXPECT_NEAR(fit.X[0], 1.5, kFewRoundings);
}

TEST(Minimise, EndsWithoutErrorsWhenTheLastComputationFails) {
  ModelResiduals residuals(constant, {0, 1, 2}, {1, 2, 3}, {1, 1, 1});
  residuals.failAt(3);
  const Fit fit = minimise(residuals, {2}, {1.0 / 32});
  EXPECT_EQ(fit.result.end, MinimiseEnd::kResidualsFailed);
  EXPECT_EQ(fit.result.evaluations, 3);
}

// ---- Progress ---------------------------------------------------------------------------------------------

TEST(Minimise, ShowsEachIterationOfOneParameter) {
  ModelResiduals residuals(constant, {0, 1, 2}, {1, 2, 3}, {1, 1, 1});
  const Fit fit = minimise(residuals, {1}, {1.0 / 32});
  ASSERT_EQ(fit.log.entries.size(), 2U);
  EXPECT_EQ(fit.log.entries[0].iteration, 0);
  EXPECT_EQ(fit.log.entries[0].sum, 5);
  EXPECT_THAT(fit.log.entries[0].X, testing::ElementsAre(1));
  EXPECT_EQ(fit.log.entries[1].iteration, 1);
  EXPECT_NEAR(fit.log.entries[1].sum, 2, kManyRoundings);
}

TEST(Minimise, ShowsEveryThirdIterationOfThreeParameters) {
  ModelResiduals residuals = noisy(bell, {5, 3, 0.7}, 0, 0.2, 31, 0.1);
  const Fit fit = minimise(residuals, {2, 2, 2}, {0.002, 0.002, 0.002});
  ASSERT_GE(fit.log.entries.size(), 2U);
  for (const ProgressLog::Entry& entry : fit.log.entries) EXPECT_EQ(entry.iteration % 3, 0);
  EXPECT_EQ(fit.log.entries[0].iteration, 0);
  EXPECT_EQ(fit.log.entries[1].iteration, 3);
}

TEST(Minimise, ShowsNothingWhenAskedTo) {
  ModelResiduals residuals = lineProblem();
  const Fit fit = minimise(residuals, {1, 1}, {0.01, 0.01}, {.icon = 0});
  EXPECT_TRUE(fit.log.entries.empty());
}

}  // namespace
}  // namespace vk
