#include <cmath>

#include "doubles/Tolerances.h"
#include "numeric/SampleFits.h"

namespace vk {
namespace {

// ---- Stage 1 ----------------------------------------------------------------------------------------------

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

// ---- Stage 2 ----------------------------------------------------------------------------------------------

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
  // First step 0.74 units, but the search goes 1.5 times as far, 1.11 units: a second iteration follows. The sum comes
  // from MinimiseStagesTest.py.
  ModelResiduals residuals(cubed, {1, 2}, {8.5, 15.5}, {1, 1});
  const Fit fit = minimise(residuals, {0.2}, {2});
  ASSERT_GE(fit.log.entries.size(), 2U);
  EXPECT_EQ(fit.log.entries[0].iteration, 0);
  EXPECT_EQ(fit.log.entries[1].iteration, 1);
  EXPECT_NEAR(fit.log.entries[1].sum, 202.94179014648407, kIterated);
  EXPECT_EQ(fit.log.entries[2].iteration, 2);  // after the second the test ends the pass
  EXPECT_EQ(fit.log.entries[3].iteration, 0);  // of the second pass
  EXPECT_EQ(fit.result.passes, 4);
  EXPECT_EQ(fit.result.evaluations, 48);
}

TEST(Minimise, EndsAfterAStepOfExactlyOneUnit) {
  // All numbers are exact: a step of 1 from 1 to the mean 2. The error 16 calls for no finer accuracy.
  ModelResiduals residuals(constant, {0, 1, 2, 3}, {1, 2, 2, 3}, Values(4, 32));
  const Fit fit = minimise(residuals, {1}, {1});
  EXPECT_EQ(fit.X[0], 2);
  EXPECT_EQ(fit.result.errors[1], 16);
  EXPECT_EQ(fit.result.passes, 1);
  EXPECT_EQ(fit.result.iterations, 1);
}

TEST(Minimise, GoesOnWhenALongStepTurnsIntoAShortSearch) {
  // First step -1.45 units; the minimum is 0.8 units away. The error of 70 calls for no finer accuracy.
  ModelResiduals residuals([](auto p, double x) { return x * p[0] / (1 + p[0]); }, {1, 2},
                           {1.2 / 2.2 + 0.2, 2.4 / 2.2 - 0.1}, {32, 32});
  const Fit fit = minimise(residuals, {2}, {1});
  EXPECT_NEAR(fit.X[0], 1.2, 0.1);
  EXPECT_EQ(fit.result.passes, 1);
  EXPECT_EQ(fit.result.iterations, 2);
}

TEST(Minimise, ReplacesTheLastOfDirectionsWithEqualShares) {
  // Each parameter is the mean of two points, with the same way to go: the common way stands in for the second
  // parameter's, and its displacements of 1/2 add to 1/sqrt(2) of the first one's own.
  ModelResiduals residuals([](auto p, double x) { return x < 3 ? p[0] : p[1]; }, {1, 2, 3, 4}, {1, 3, 1, 3},
                           Values(4, 1));
  const Fit fit = minimise(residuals, {1, 1}, {1.0 / 32, 1.0 / 32});
  EXPECT_NEAR(fit.X[0], 2, kManyRoundings);
  EXPECT_NEAR(fit.X[1], 2, kManyRoundings);
  EXPECT_NEAR(fit.result.errors[1], std::sqrt(0.75), kManyRoundings);
  EXPECT_NEAR(fit.result.errors[2], 0.5, kManyRoundings);
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
  EXPECT_NEAR(fit.X[0], 2, kIterated);
  EXPECT_NEAR(fit.X[1], 1, kIterated);
  EXPECT_NEAR(fit.result.FS, 0, kManyRoundings);
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
  EXPECT_NEAR(fit.X[0], 2, kFewRoundings);
  EXPECT_NEAR(fit.result.FS, 2, kManyRoundings);
  EXPECT_EQ(fit.result.evaluations, 6);
}

TEST(Minimise, TakesTheSecantWhereOneResidualLeavesNothingOrthogonal) {
  // A line with a bend at 1, which the search leaves at -2, half way to the minimum. The two best points lie on the
  // line: their secant ends at -4, and its first search begins with half a step uphill and half a step down.
  ModelResiduals residuals([](auto p, double) { return p[0] < 1 ? p[0] : 2 * p[0] - 1; }, {0}, {-4}, {16});
  const Fit fit = minimise(residuals, {0}, {1});
  const double expected[] = {0, 1, 2, -2, -1, -3, -4, -4};
  ASSERT_EQ(residuals.tried.size(), std::size(expected));
  for (std::size_t k = 0; k < std::size(expected); ++k) EXPECT_EQ(residuals.tried[k][0], expected[k]) << k;
  EXPECT_EQ(fit.result.end, MinimiseEnd::kCompleted);
  EXPECT_EQ(fit.result.FS, 0);
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
  EXPECT_NEAR(fit.X[0], 2, kMinimum);
  EXPECT_NEAR(fit.X[1], 1, kMinimum);
}

TEST(Minimise, RunsWithMoreParametersThanPoints) {
  ModelResiduals residuals(square, {1, 2}, {3, 5}, {0.1, 0.1});
  const Fit fit = minimise(residuals, {1, 2, 3}, {0.01, 0.02, 0.03});
  EXPECT_LE(fit.result.evaluations, 4 * 1100);
  for (double value : fit.X) EXPECT_TRUE(std::isfinite(value));
}

// ---- Stage 3 ----------------------------------------------------------------------------------------------

TEST(Minimise, LowersTheAccuracyToATenthOfTheErrorAndRepeats) {
  ModelResiduals residuals(constant, {0, 1, 2}, {1, 2, 3}, {1, 1, 1});
  const Fit fit = minimise(residuals, {2}, {0.5});
  EXPECT_GT(fit.result.passes, 1);
  EXPECT_NEAR(fit.E[0], 1 / std::sqrt(3) / 10, kManyRoundings);
  EXPECT_EQ(fit.result.TooCoarse, kFalse);
}

TEST(Minimise, RepeatsAtMostThreeTimes) {
  // Far from the minimum, where each pass finds another error.
  ModelResiduals residuals(cubed, {1, 2}, {8.5, 15.5}, {1, 1});
  const Fit fit = minimise(residuals, {0.2}, {2});
  EXPECT_EQ(fit.result.passes, 4);
}

TEST(Minimise, RepeatsNoFourthTimeWhereTheAccuracyIsStillCoarse) {
  // At the minimum already, with an error that is the root of the accuracy: each pass calls for sqrt(E)/10.
  ModelResiduals residuals([](auto p, double x) { return x == 0 ? 1 : std::sqrt(std::abs(p[0])); }, {0, 1},
                           {0, 0}, {1, 1});
  const Fit fit = minimise(residuals, {0}, {1});
  EXPECT_EQ(fit.result.passes, 4);
  EXPECT_EQ(fit.result.evaluations, 4 * 3);
  EXPECT_NEAR(fit.E[0], std::pow(10, -1.875), kFewRoundings);
  EXPECT_EQ(fit.result.end, MinimiseEnd::kCompleted);
}

TEST(Minimise, TellsAnErrorBeyondTheRangeOfNumbers) {
  ModelResiduals residuals([](auto p, double x) { return x == 0 ? 1 : 1E-160 * p[0]; }, {0, 1}, {0, 0},
                           {1, 1});
  const Fit fit = minimise(residuals, {0}, {1});
  EXPECT_EQ(fit.result.end, MinimiseEnd::kErrorsNotFinite);
  EXPECT_TRUE(std::isinf(fit.result.errors[1]));
}

TEST(Minimise, LeavesTheResidualsOfItsEndWhereverItHasComputedThem) {
  for (const Values& start : {Values{1.5, 1}, Values{2.082, 0.534}, Values{3, 2}}) {
    ModelResiduals residuals = hyperbolaProblem();
    const Fit fit = minimise(residuals, start, hundredths(start));
    Values expected(6);
    double sum = 0;
    residuals.ComputeResiduals(fit.X, expected, expected, sum);
    EXPECT_EQ(fit.F, expected);
    EXPECT_EQ(fit.result.FS, sum);
  }
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

}  // namespace
}  // namespace vk
