#include "numeric/DampedSteps.h"

#include <gmock/gmock.h>

#include <cmath>

#include "doubles/Tolerances.h"
#include "numeric/MadeResiduals.h"

namespace vk {
namespace {

using testing::ElementsAre;

// A line over four points, and its inverse of (4 6; 6 14).
TEST(DampedSteps, TellTheErrorsRoughly) {
  constexpr double kY[] = {3, 5.2, 6.9, 9.1};
  MadeResiduals line(4, [&](auto p, int j) { return p[0] + p[1] * j - kY[j]; });
  const DampedResult result = dampedSteps(line, {0, 0});
  EXPECT_FALSE(result.exhausted);
  EXPECT_THAT(result.start, ElementsAre(0, 0));
  EXPECT_NEAR(result.parameters[0], 3.05, kMinimum);
  EXPECT_NEAR(result.parameters[1], 2, kMinimum);
  EXPECT_NEAR(result.errors[0], std::sqrt(0.7), kMinimum);
  EXPECT_NEAR(result.errors[1], std::sqrt(0.2), kMinimum);
  EXPECT_NEAR(result.sum, 0.05, kMinimum);
  EXPECT_EQ(result.evaluations, static_cast<int>(line.tried.size()));
}

TEST(DampedSteps, TellNoErrorOfAParameterWithoutEffect) {
  MadeResiduals first(3, [](auto p, int j) { return 1E-3 * p[0] - j; });
  const DampedResult result = dampedSteps(first, {1, 1});
  EXPECT_NEAR(result.parameters[0], 1000, kSixDigits);
  EXPECT_NEAR(result.errors[0], 1000 / std::sqrt(3), kSixDigits);
  EXPECT_EQ(result.errors[1], 0);
}

TEST(DampedSteps, EndAfterFourHundredComputationsForEachParameterAndFourHundredMore) {
  // The residuals fall for ever, with steps that grow: each is a derivative by two parameters at most, and a place.
  for (const std::size_t parameters : {1U, 2U}) {
    MadeResiduals endless(
        2, [](auto p, int j) { return j == 0 ? 1 / std::log(2 + std::abs(p[0])) : 0 * p.back(); });
    const DampedResult result = dampedSteps(endless, std::vector<double>(parameters, 1));
    const int allowed = 400 * (static_cast<int>(parameters) + 1);
    EXPECT_TRUE(result.exhausted);
    EXPECT_EQ(result.evaluations, static_cast<int>(endless.tried.size()));
    EXPECT_GE(result.evaluations, 1 + allowed);  // the start is computed once before
    EXPECT_LE(result.evaluations, 1 + allowed + static_cast<int>(parameters));
  }
}

TEST(DampedSteps, GoOneScaledLengthAtFirst) {
  // Scaled by the derivatives a length is that of the start, so that the first step leads to twice or to nothing.
  MadeResiduals far(1, [](auto p, int) { return p[0] - 1000; });
  const DampedResult result = dampedSteps(far, {1});
  // The start twice, its derivative, and the first step.
  ASSERT_GT(far.tried.size(), 3U);
  EXPECT_NEAR(far.tried[3][0], 2, 0.1);
  EXPECT_NEAR(result.parameters[0], 1000, kMinimum);
}

}  // namespace
}  // namespace vk
