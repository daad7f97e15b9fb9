#include "numeric/CentralDifferences.h"

#include <gmock/gmock.h>

#include <cmath>
#include <limits>

#include "doubles/Tolerances.h"
#include "numeric/MadeResiduals.h"

namespace vk {
namespace {

using testing::ElementsAre;

constexpr double kNotANumber = std::numeric_limits<double>::quiet_NaN();

TEST(CentralDifferences, AreExactForAPolynomialAndTakeTwoSteps) {
  MadeResiduals cube(2, [](auto p, int j) { return (j + 1) * p[0] * p[0] * p[0] + p[1]; });
  CentralDifferences differences(cube, {1, 7});
  EXPECT_THAT(differences.residuals(), ElementsAre(8, 9));
  const auto column = differences.by(0, 0.5);
  ASSERT_TRUE(column.has_value());
  EXPECT_THAT(column->values, ElementsAre(3, 6));
  EXPECT_EQ(column->step, 0.125);
  EXPECT_EQ(column->disagreement, 0);
  // The parameters themselves, and four places for each of two steps.
  const double places[] = {1, 1.5, 0.5, 2, 0, 1.125, 0.875, 1.25, 0.75};
  EXPECT_EQ(differences.evaluations(), 9);
  ASSERT_EQ(cube.tried.size(), std::size(places));
  for (std::size_t k = 0; k < std::size(places); ++k)
    EXPECT_THAT(cube.tried[k], ElementsAre(places[k], 7)) << k;
}

TEST(CentralDifferences, ShrinkTheirStepsUntilTheColumnSettles) {
  // With a step h the column is too small by the part h^4/30, so that it agrees with the one before to 255 times as
  // much. That is below 1E-9 for the sixth step.
  MadeResiduals growth(2, [](auto p, int j) { return (3 + j) * std::exp(p[0]); });
  CentralDifferences differences(growth, {0});
  const auto column = differences.by(0, 1);
  ASSERT_TRUE(column.has_value());
  EXPECT_EQ(column->step, 1.0 / 1024);
  EXPECT_NEAR(column->disagreement, 255 * std::pow(column->step, 4) / 30, kManyRoundings);
  EXPECT_NEAR(column->values[0], 3, kDerived);
  EXPECT_NEAR(column->values[1], 4, kDerived);
  EXPECT_EQ(differences.evaluations(), 1 + 6 * 4);
}

TEST(CentralDifferences, GiveNothingAfterFifteenStepsThatDoNotSettle) {
  // The slope of a root doubles from step to step.
  MadeResiduals root(1, [](auto p, int) { return std::copysign(std::sqrt(std::abs(p[0])), p[0]); });
  CentralDifferences differences(root, {0});
  EXPECT_FALSE(differences.by(0, 1).has_value());
  EXPECT_EQ(differences.evaluations(), 1 + 15 * 4);
}

TEST(CentralDifferences, GiveNothingWhereRoundingTakesTheChangeAwayBeforeTheColumnSettles) {
  // The fifth step is the first one that sees no change.
  MadeResiduals rounded(1, [](auto p, int) {
    return std::abs(p[0]) < 0.01 ? 0 : 0.01 * std::copysign(std::sqrt(std::abs(p[0])), p[0]);
  });
  CentralDifferences differences(rounded, {0});
  EXPECT_FALSE(differences.by(0, 1).has_value());
  EXPECT_EQ(differences.evaluations(), 1 + 5 * 4);
}

TEST(CentralDifferences, OfAParameterWithoutEffectAreZero) {
  MadeResiduals constant(2, [](auto, int j) { return 5.0 + j; });
  CentralDifferences differences(constant, {3});
  const auto column = differences.by(0, 1);
  ASSERT_TRUE(column.has_value());
  EXPECT_THAT(column->values, ElementsAre(0, 0));
  EXPECT_EQ(column->disagreement, 0);
  EXPECT_EQ(differences.evaluations(), 1 + 2 * 4);
}

TEST(CentralDifferences, LeaveOutPointsThatFailForTheParametersThemselves) {
  MadeResiduals line(3, [](auto p, int j) { return j == 1 ? kNotANumber : (j + 1) * p[0]; });
  const auto column = CentralDifferences(line, {0}).by(0, 1);
  ASSERT_TRUE(column.has_value());
  EXPECT_THAT(column->values, ElementsAre(1, 0, 3));
}

TEST(CentralDifferences, PassOverAStepThatLeadsToWhereAPointFails) {
  // The first step fails, the second and the third agree.
  MadeResiduals line(2, [](auto p, int j) { return j == 1 && p[0] < 0 ? kNotANumber : (j + 1) * p[0]; });
  CentralDifferences differences(line, {1});
  const auto column = differences.by(0, 1);
  ASSERT_TRUE(column.has_value());
  EXPECT_THAT(column->values, ElementsAre(1, 2));
  EXPECT_EQ(column->step, 1.0 / 16);
  EXPECT_EQ(differences.evaluations(), 1 + 3 * 4);
}

TEST(CentralDifferences, GoOnBesideAGapThatAStepLeadsInto) {
  // The second step, a quarter of the first, leads into the gap.
  MadeResiduals gap(2, [](auto p, int) { return p[0] > 1.02 && p[0] < 1.03 ? kNotANumber : p[0] * p[0]; });
  const auto column = CentralDifferences(gap, {1}).by(0, 0.1);
  ASSERT_TRUE(column.has_value());
  EXPECT_NEAR(column->values[0], 2, kManyRoundings);
  EXPECT_LT(column->step, 0.1 / 4);
}

TEST(CentralDifferences, AreNoneBeyondTheRangeOfNumbers) {
  // The derivatives are numbers, the squares of their lengths are none.
  MadeResiduals huge(2, [](auto p, int j) { return 1E200 * std::exp(p[0] * (j + 1)); });
  EXPECT_FALSE(CentralDifferences(huge, {0.1}).by(0, 0.01).has_value());
}

TEST(CentralDifferences, BeginWithATenthOfTheValueOrAThousandthOfTheError) {
  constexpr double kInfinity = std::numeric_limits<double>::infinity();
  EXPECT_DOUBLE_EQ(firstStep(-20, 0, 1), 2);
  EXPECT_DOUBLE_EQ(firstStep(1, 5, 1), 0.1);
  EXPECT_DOUBLE_EQ(firstStep(1, 500, 0.5), 0.25);
  EXPECT_DOUBLE_EQ(firstStep(0, 4, 0.5), 0.002);
  EXPECT_DOUBLE_EQ(firstStep(2, kInfinity, 1), 0.2);
  EXPECT_DOUBLE_EQ(firstStep(0, 4, 0), 0.01);
}

TEST(CentralDifferences, TakeTheErrorsAsLargeAsTheirScatterAtMost) {
  EXPECT_EQ(scatterOf(0.5, 2), 0.5);
  EXPECT_EQ(scatterOf(0.25, 1), 0.5);
  EXPECT_EQ(scatterOf(8, 2), 1);
  EXPECT_EQ(scatterOf(8, 0), 0);
  EXPECT_EQ(scatterOf(8, -1), 0);
}

}  // namespace
}  // namespace vk
