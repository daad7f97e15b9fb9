#include "numeric/Minimise.h"

#include <cmath>

#include "numeric/ModelResiduals.h"
#include "numeric/SampleValues.h"

namespace vk {
namespace {

using Model = ModelResiduals::Model;

Values toVector(const Array<double>& array) {
  const auto values = array.span(1, array.upper());
  return {values.begin(), values.end()};
}

struct Fit {
  MinimiseResult result;
  Values X, E, F;
  ProgressLog log;
};

Fit minimise(ModelResiduals& residuals, const Values& start, const Values& accuracy,
             const MinimiseOptions& options = {}) {
  const int M = residuals.points();
  const int N = static_cast<int>(start.size());
  Array<double> X = fromOne(start);
  Array<double> E = fromOne(accuracy);
  Array<double> F(M);
  MinimiseWork W(M, N);
  Fit fit;
  fit.result = Minimise(residuals, M, N, F, X, E, options, W, fit.log);
  fit.X = toVector(X);
  fit.E = toVector(E);
  fit.F = toVector(F);
  return fit;
}

Values hundredths(const Values& start) {
  Values steps;
  for (double value : start) steps.push_back(value == 0 ? 0.01 : std::abs(value) / 100);
  return steps;
}

double line(std::span<const double> p, double x) {
  return p[0] * x + p[1];
}
double constant(std::span<const double> p, double) {
  return p[0];
}
double square(std::span<const double> p, double x) {
  return (p[0] * x + p[1]) * x + p[2];
}
double hyperbola(std::span<const double> p, double x) {
  return p[0] / (1 + p[1] * x);
}
double cubed(std::span<const double> p, double x) {
  return p[0] * p[0] * p[0] * x;
}

ModelResiduals lineProblem() {
  return {line, kFive, kLineY, kTenths};
}
ModelResiduals hyperbolaProblem() {
  return {hyperbola, {0, 1, 2, 3, 4, 5}, {2.1, 1.3, 1.0, 0.8, 0.7, 0.6}, Values(6, 0.1)};
}

// ---- Solutions that are known otherwise --------------------------------------------------------------------

TEST(Minimise, FindsTheWeightedMean) {
  // Weights 1, 1/4, 1: (1 + 3/4 + 8) / (9/4).
  ModelResiduals residuals(constant, {0, 1, 2}, {1, 3, 8}, {1, 2, 1});
  const Fit fit = minimise(residuals, {1}, {0.01});
  EXPECT_NEAR(fit.X[0], 9.75 / 2.25, 1E-6);
  EXPECT_EQ(fit.result.end, MinimiseEnd::kCompleted);
}

TEST(Minimise, FindsTheStraightLineOfTheNormalEquations) {
  // Sums: n 5, x 15, xx 55, y 30.1, xy 110.2.
  ModelResiduals residuals = lineProblem();
  const Fit fit = minimise(residuals, {1, 1}, {0.01, 0.01});
  const double slope = (5 * 110.2 - 15 * 30.1) / (5 * 55 - 15 * 15);
  EXPECT_NEAR(fit.X[0], slope, 1E-6);
  EXPECT_NEAR(fit.X[1], (30.1 - slope * 15) / 5, 1E-6);
  EXPECT_NEAR(fit.result.FS, 10.7, 1E-6);
  EXPECT_EQ(fit.result.end, MinimiseEnd::kCompleted);
}

TEST(Minimise, FindsTheParabolaOfTheNormalEquations) {
  ModelResiduals residuals(square, {-2, -1, 0, 1, 2}, {9.1, 4.2, 1.0, 0.1, 1.2}, Values(5, 0.1));
  const Fit fit = minimise(residuals, {0, 0, 0}, {0.01, 0.01, 0.01});
  // Orthogonal polynomials over -2..2: sum y 15.6, sum xy -19.9, sum (xx - 2) y 14.3 over 14.
  const double a = (2 * 9.1 - 4.2 - 2 * 1.0 - 0.1 + 2 * 1.2) / 14;
  EXPECT_NEAR(fit.X[0], a, 1E-6);
  EXPECT_NEAR(fit.X[1], (-2 * 9.1 - 4.2 + 0.1 + 2 * 1.2) / 10, 1E-6);
  EXPECT_NEAR(fit.X[2], 15.6 / 5 - 2 * a, 1E-6);
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
  again.ComputeResiduals(best, F, least);
  ASSERT_EQ(fit.result.end, MinimiseEnd::kCompleted);
  for (std::size_t i = 0; i < best.size(); ++i) {
    EXPECT_NEAR(fit.X[i], best[i], 0.05 * fit.result.errors[static_cast<int>(i) + 1])
        << "parameter " << i + 1;
  }
  EXPECT_NEAR(fit.result.FS, least, 1E-4 * least);
}

double decay(std::span<const double> p, double x) {
  return p[0] * std::exp(-p[1] * x) + p[2];
}
double bell(std::span<const double> p, double x) {
  const double z = (x - p[1]) / p[2];
  return p[0] * std::exp(-z * z / 2);
}

ModelResiduals noisy(const Model& model, const Values& parameters, double first, double step, int points,
                     double error) {
  Values x, y;
  unsigned state = 12345;
  for (int j = 0; j < points; ++j) {
    state = state * 1664525U + 1013904223U;
    const double deviation = (static_cast<double>(state >> 8) / 8388608.0 - 1) * 1.7 * error;
    x.push_back(first + step * j);
    y.push_back(model(parameters, x.back()) + deviation);
  }
  return {model, x, y, Values(x.size(), error)};
}

TEST(Minimise, ComesNearTheTrueMinimumOfAnExponentialDecay) {
  expectNearTrueMinimum(noisy(decay, {10, 0.5, 1}, 0, 0.25, 40, 0.2), {7, 0.8, 0});
  expectNearTrueMinimum(noisy(decay, {10, 0.5, 1}, 0, 0.25, 40, 0.02), {7, 0.8, 0.5});
}

TEST(Minimise, ComesNearTheTrueMinimumOfABellCurve) {
  expectNearTrueMinimum(noisy(bell, {5, 3, 0.7}, 0, 0.2, 31, 0.1), {4, 2.6, 1});
  expectNearTrueMinimum(noisy(bell, {500, 30, 4}, 10, 1, 41, 20), {400, 27, 6});
}

// ---- A whole run, number for number ------------------------------------------------------------------------
// The figures come from a plain transcription of the procedure in another language; the model needs only the
// four operations, so that every machine gets the same digits.

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
  for (std::size_t k = 0; k < 6; ++k) EXPECT_NEAR(residuals.tried[k][0], expected[k], 1E-14) << k;
  EXPECT_EQ(fit.result.iterations, 2);
  EXPECT_EQ(fit.result.passes, 1);
  EXPECT_NEAR(fit.result.errors[1], 1 / std::sqrt(3), 1E-12);
}

// ---- Stage 1 -----------------------------------------------------------------------------------------------

TEST(Minimise, RaisesAnAccuracyThatIsTinyAgainstItsParameter) {
  // 1E-4 / (1 + 200) is below 1E-6: the first difference is taken with 1E-5 * 200.
  ModelResiduals residuals(constant, {0, 1}, {200.5, 201.5}, {1, 1});
  minimise(residuals, {200}, {1E-4});
  EXPECT_EQ(residuals.tried[1][0], 200 + 1E-5 * 200);
}

TEST(Minimise, KeepsAnAccuracyThatIsJustLargeEnough) {
  ModelResiduals residuals(constant, {0, 1}, {200.5, 201.5}, {1, 1});
  minimise(residuals, {200}, {3E-4});
  EXPECT_EQ(residuals.tried[1][0], 200 + 3E-4);
}

TEST(Minimise, GivesUpOnAParameterWithoutEffect) {
  ModelResiduals residuals([](auto p, double x) { return p[0] * x; }, kFive, kLineY, kTenths);
  const Fit fit = minimise(residuals, {1, 7, 1}, {0.01, 0.07, 0.01});
  EXPECT_EQ(fit.result.end, MinimiseEnd::kNoEffect);
  EXPECT_EQ(fit.result.parameter, 2);
  EXPECT_EQ(residuals.calls(), 3);
}

TEST(Minimise, GivesUpOnAParameterThatIsZeroWithAccuracyZero) {
  ModelResiduals residuals = lineProblem();
  const Fit fit = minimise(residuals, {1, 0}, {0.01, 0});
  EXPECT_EQ(fit.result.end, MinimiseEnd::kNoEffect);
  EXPECT_EQ(fit.result.parameter, 2);
  EXPECT_EQ(fit.E[1], 0);
}

// ---- Stage 2 -----------------------------------------------------------------------------------------------

TEST(Minimise, EndsWhenTheStepAndTheSearchBehindItAreSmall) {
  // A hair beside the minimum the first step is below one unit, and so is the distance moved.
  ModelResiduals residuals = hyperbolaProblem();
  const Fit fit = minimise(residuals, {2.082, 0.534}, {0.004, 0.004});
  EXPECT_EQ(fit.result.end, MinimiseEnd::kCompleted);
  EXPECT_EQ(fit.result.passes, 1);
  EXPECT_EQ(fit.result.iterations, 1);
  EXPECT_EQ(fit.log.entries.size(), 1U);
}

TEST(Minimise, GoesOnWhenASmallStepTurnsIntoALongSearch) {
  // First step 0.74 units, but the search goes 1.5 times as far, 1.11 units: a second iteration follows.
  ModelResiduals residuals(cubed, {1, 2}, {8.5, 15.5}, {1, 1});
  const Fit fit = minimise(residuals, {0.2}, {2});
  ASSERT_GE(fit.log.entries.size(), 2U);
  EXPECT_EQ(fit.log.entries[0].iteration, 0);
  EXPECT_EQ(fit.log.entries[1].iteration, 1);
  EXPECT_NEAR(fit.log.entries[1].sum, 202.94179014648407, 1E-9);
  EXPECT_EQ(fit.log.entries[2].iteration, 2);  // after the second the test ends the pass
  EXPECT_EQ(fit.log.entries[3].iteration, 0);  // of the second pass
  EXPECT_EQ(fit.result.passes, 4);
  EXPECT_EQ(fit.result.evaluations, 48);
}

TEST(Minimise, EndsAtOnceWhenItStartsAtTheExactMinimum) {
  // Residuals 1, 0, -1 and a change that is the same for all: no step at all.
  ModelResiduals residuals(constant, {0, 1, 2}, {1, 2, 3}, {1, 1, 1});
  const Fit fit = minimise(residuals, {2}, {1.0 / 32});
  EXPECT_EQ(fit.result.iterations, 1);
  EXPECT_EQ(fit.result.evaluations, 3);
  EXPECT_EQ(fit.X[0], 2);
  // The error of a mean of three values with error 1, by the one difference taken.
  EXPECT_DOUBLE_EQ(fit.result.errors[1], 1 / std::sqrt(3));
  EXPECT_EQ(fit.result.end, MinimiseEnd::kCompleted);
}

TEST(Minimise, EndsNormallyOnExactData) {
  ModelResiduals residuals(line, {0, 1, 2, 3}, {1, 3, 5, 7}, Values(4, 0.5));
  const Fit fit = minimise(residuals, {1, 2}, {0.25, 0.25});
  EXPECT_EQ(fit.result.end, MinimiseEnd::kCompleted);
  EXPECT_NEAR(fit.X[0], 2, 1E-9);
  EXPECT_NEAR(fit.X[1], 1, 1E-9);
  EXPECT_NEAR(fit.result.FS, 0, 1E-12);
}

TEST(Minimise, EndsNormallyWhenTheSumOfSquaresIsExactlyZero) {
  ModelResiduals residuals(line, {0, 1, 2, 3}, {1, 3, 5, 7}, Values(4, 1));
  const Fit fit = minimise(residuals, {2, 1}, {0.25, 0.25});
  EXPECT_EQ(fit.result.end, MinimiseEnd::kCompleted);
  EXPECT_EQ(fit.result.FS, 0);
  EXPECT_THAT(fit.X, testing::ElementsAre(2, 1));
}

TEST(Minimise, EndsNormallyWhenTheWholeSearchSeesOneValue) {
  // Differences feel the step, the search does not: beyond the first two calls the model is flat.
  int calls = 0;
  ModelResiduals residuals([&calls](std::span<const double> p, double) { return ++calls <= 2 ? p[0] : 1.0; },
                           {0}, {5}, {1});
  const Fit fit = minimise(residuals, {1}, {1.0 / 1024});
  EXPECT_EQ(fit.result.end, MinimiseEnd::kCompleted);
  EXPECT_EQ(fit.X[0], 1);
  EXPECT_EQ(fit.result.evaluations, 2 + 20 + 1);
  EXPECT_EQ(fit.result.iterations, 1);
}

TEST(Minimise, StopsAtTheMostComputationsWithoutAWord) {
  ModelResiduals residuals = hyperbolaProblem();
  const Fit fit = minimise(residuals, {1.5, 1}, {1E-4, 1E-4}, {.maxit = 6});
  EXPECT_EQ(fit.result.end, MinimiseEnd::kCompleted);
  // Three to begin with, four of the search (the last one above the limit), one for the errors.
  EXPECT_EQ(fit.result.passes, 1);
  EXPECT_EQ(fit.result.evaluations, 8);
  EXPECT_EQ(fit.result.iterations, 1);
}

TEST(Minimise, StillTakesTheValueThatGoesBeyondTheLimit) {
  // The third value of the search, at the minimum itself, is the one too many.
  ModelResiduals residuals(constant, {0, 1, 2}, {1, 2, 3}, {1, 1, 1});
  const Fit fit = minimise(residuals, {1}, {1.0 / 32}, {.maxit = 4});
  EXPECT_NEAR(fit.X[0], 2, 1E-14);
  EXPECT_NEAR(fit.result.FS, 2, 1E-12);
  EXPECT_EQ(fit.result.evaluations, 6);
}

TEST(Minimise, FailsSilentlyWhenParametersCannotBeToldApart) {
  // Only the sum of both counts, and all numbers are exact: the second direction depends on the first.
  ModelResiduals residuals([](auto p, double) { return p[0] + p[1]; }, {0, 1, 2, 3}, {1, 2, 3, 4},
                           Values(4, 1));
  const Fit fit = minimise(residuals, {1, 2}, {0.5, 0.5});
  EXPECT_EQ(fit.result.end, MinimiseEnd::kIndistinguishable);
  EXPECT_THAT(fit.X, testing::ElementsAre(1, 2));
}

TEST(Minimise, RunsWithAsManyParametersAsPoints) {
  ModelResiduals residuals(line, {1, 2}, {3, 5}, {0.1, 0.1});
  const Fit fit = minimise(residuals, {1, 2}, {0.01, 0.02});
  EXPECT_EQ(fit.result.end, MinimiseEnd::kCompleted);
  EXPECT_NEAR(fit.X[0], 2, 1E-6);
  EXPECT_NEAR(fit.X[1], 1, 1E-6);
}

TEST(Minimise, RunsWithMoreParametersThanPoints) {
  ModelResiduals residuals(square, {1, 2}, {3, 5}, {0.1, 0.1});
  const Fit fit = minimise(residuals, {1, 2, 3}, {0.01, 0.02, 0.03});
  EXPECT_LE(fit.result.evaluations, 4 * 1100);
  for (double value : fit.X) EXPECT_TRUE(std::isfinite(value));
}

// ---- Stage 3 -----------------------------------------------------------------------------------------------

TEST(Minimise, LowersTheAccuracyToATenthOfTheErrorAndRepeats) {
  ModelResiduals residuals(constant, {0, 1, 2}, {1, 2, 3}, {1, 1, 1});
  const Fit fit = minimise(residuals, {2}, {0.5});
  EXPECT_GT(fit.result.passes, 1);
  EXPECT_NEAR(fit.E[0], 1 / std::sqrt(3) / 10, 1E-12);
  EXPECT_EQ(fit.result.TooCoarse, kFalse);
}

TEST(Minimise, RepeatsAtMostThreeTimes) {
  // Far from the minimum, where each pass finds another error.
  ModelResiduals residuals(cubed, {1, 2}, {8.5, 15.5}, {1, 1});
  const Fit fit = minimise(residuals, {0.2}, {2});
  EXPECT_EQ(fit.result.passes, 4);
}

TEST(Minimise, TakesTheCoarsenessOfTheLastParameterAlone) {
  // QUIRK: the first parameter is so precise that its accuracy stays coarse, raised anew in each pass, while
  // the last one is fine; and the other way round.
  const auto model = [](auto p, double x) { return x < 3 ? p[0] : p[1]; };
  ModelResiduals firstCoarse(model, {1, 2, 3, 4}, {100.1, 100.2, 1, 2}, {1E-6, 1E-6, 1, 1});
  EXPECT_EQ(minimise(firstCoarse, {100, 1}, {1, 0.01}).result.TooCoarse, kFalse);
  ModelResiduals lastCoarse(model, {1, 2, 3, 4}, {1, 2, 100.1, 100.2}, {1, 1, 1E-6, 1E-6});
  EXPECT_EQ(minimise(lastCoarse, {1, 100}, {0.01, 1}).result.TooCoarse, kTrue);
}

TEST(Minimise, DoesNotRepeatForAnAccuracyThatIsAlreadySmallAgainstItsParameter) {
  ModelResiduals residuals(constant, {0, 1}, {100.001, 100.002}, {1E-6, 1E-6});
  const Fit fit = minimise(residuals, {100.0015}, {1E-5 * 100.0015});
  EXPECT_EQ(fit.result.passes, 1);
  EXPECT_EQ(fit.result.TooCoarse, kTrue);
}

TEST(Minimise, GivesCorrelationsOfTheDisplacementsAlone) {
  // Started at the minimum of a line the directions are those of the differences, one for each parameter:
  // their displacements share nothing, although the true correlation is -0.9.
  ModelResiduals residuals(line, {1, 2, 3}, {1, 2, 3}, {1, 1, 1});
  const Fit fit = minimise(residuals, {1, 0}, {1.0 / 64, 1.0 / 64});
  EXPECT_EQ(fit.result.correlation.at(2, 1), 0);
  EXPECT_DOUBLE_EQ(fit.result.errors[1], 1 / std::sqrt(14));
  EXPECT_DOUBLE_EQ(fit.result.errors[2], 1 / std::sqrt(3));
}

TEST(Minimise, GivesASymmetricCorrelationMatrix) {
  ModelResiduals residuals = noisy(decay, {10, 0.5, 1}, 0, 0.25, 40, 0.2);
  const Fit fit = minimise(residuals, {7, 0.8, 0.5}, {0.07, 0.008, 0.005});
  const CorrelationMatrix& R = fit.result.correlation;
  ASSERT_EQ(R.size(), 3);
  for (int a = 1; a <= 3; ++a) {
    EXPECT_EQ(R.at(a, a), 1);
    for (int b = 1; b <= 3; ++b) {
      EXPECT_EQ(R.at(a, b), R.at(b, a));
      EXPECT_LE(std::abs(R.at(a, b)), 1);
    }
  }
}

// ---- Failing residuals -------------------------------------------------------------------------------------

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
  EXPECT_NEAR(fit.X[0], 1.5, 1E-14);
}

TEST(Minimise, EndsWithoutErrorsWhenTheLastComputationFails) {
  ModelResiduals residuals(constant, {0, 1, 2}, {1, 2, 3}, {1, 1, 1});
  residuals.failAt(3);
  const Fit fit = minimise(residuals, {2}, {1.0 / 32});
  EXPECT_EQ(fit.result.end, MinimiseEnd::kResidualsFailed);
  EXPECT_EQ(fit.result.evaluations, 3);
}

// ---- Progress ----------------------------------------------------------------------------------------------

TEST(Minimise, ShowsEachIterationOfOneParameter) {
  ModelResiduals residuals(constant, {0, 1, 2}, {1, 2, 3}, {1, 1, 1});
  const Fit fit = minimise(residuals, {1}, {1.0 / 32});
  ASSERT_EQ(fit.log.entries.size(), 2U);
  EXPECT_EQ(fit.log.entries[0].iteration, 0);
  EXPECT_EQ(fit.log.entries[0].sum, 5);
  EXPECT_THAT(fit.log.entries[0].X, testing::ElementsAre(1));
  EXPECT_EQ(fit.log.entries[1].iteration, 1);
  EXPECT_NEAR(fit.log.entries[1].sum, 2, 1E-12);
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
