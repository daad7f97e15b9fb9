#include "analysis/ProfileIntervals.h"

#include <cmath>

#include "analysis/FitFixture.h"
#include "doubles/Tolerances.h"
#include "numeric/SampleValues.h"

namespace vk {
namespace {

std::vector<ProfileIntervals> intervalsOf(FitCase& fit) {
  const RefinedFit minimum = refine(fit.problem(), fit.par, nullptr, XErrors::kEffective);
  EXPECT_TRUE(minimum.converged());
  return profileIntervals(fit.problem(), minimum);
}

TEST(ProfileIntervals, OfALineAreItsErrors) {
  FitCase fit("b*x+c", "b,c");
  fit.data(kFive, kLineY, kTenths);
  fit.start({1, 1});
  const RefinedFit minimum = refine(fit.problem(), fit.par, nullptr, XErrors::kEffective);
  const auto intervals = profileIntervals(fit.problem(), minimum);
  ASSERT_EQ(intervals.size(), 2u);
  for (int i = 1; i <= 2; ++i) {
    const double value = minimum.par.ParValues[i], error = minimum.error(i);
    const auto& [inner, outer] = intervals[static_cast<std::size_t>(i) - 1];
    EXPECT_NEAR((*inner.low - value) / error, -1, kSixDigits);
    EXPECT_NEAR((*inner.high - value) / error, 1, kSixDigits);
    EXPECT_NEAR((*outer.low - value) / error, -1.959964, kSixDigits);
    EXPECT_NEAR((*outer.high - value) / error, 1.959964, kSixDigits);
  }
}

TEST(ProfileIntervals, LieAskewWhereTheChiSquareDoes) {
  // One point: (EXP(a) - 10)^2 = 1 at LOG(9) and LOG(11).
  FitCase fit("EXP(a)+0*x", "a");
  fit.data({0, 1}, {10, 10}, {std::sqrt(2.0), std::sqrt(2.0)});
  fit.start({2});
  const auto intervals = intervalsOf(fit);
  EXPECT_NEAR(*intervals[0][0].low, std::log(9.0), kMinimum);
  EXPECT_NEAR(*intervals[0][0].high, std::log(11.0), kMinimum);
  EXPECT_NEAR(*intervals[0][1].low, std::log(10 - 1.959964), kMinimum);
  EXPECT_NEAR(*intervals[0][1].high, std::log(10 + 1.959964), kMinimum);
}

TEST(ProfileIntervals, AreOpenWhereTheChiSquareStopsGrowing) {
  // As a falls the function goes to 0, which is less than two errors away from the points.
  FitCase fit("EXP(a)+0*x", "a");
  fit.data({0, 1}, {1.5, 1.5}, {std::sqrt(2.0), std::sqrt(2.0)});
  fit.start({0});
  const auto intervals = intervalsOf(fit);
  EXPECT_NEAR(*intervals[0][0].low, std::log(0.5), kMinimum);
  EXPECT_FALSE(intervals[0][1].low.has_value());
  EXPECT_NEAR(*intervals[0][1].high, std::log(1.5 + 1.959964), kMinimum);
}

TEST(ProfileIntervals, EndWhereTheFunctionDoes) {
  FitCase fit("SQR(a)+0*x", "a");
  fit.data({0, 1}, {1, 1}, {std::sqrt(2.0) / 2, std::sqrt(2.0) / 2});
  fit.start({1.2});
  const auto intervals = intervalsOf(fit);
  EXPECT_NEAR(*intervals[0][0].low, 0.25, kMinimum);
  EXPECT_NEAR(*intervals[0][0].high, 2.25, kMinimum);
  EXPECT_NEAR(*intervals[0][1].low, 0.020018 * 0.020018, kByDifferences);
}

TEST(ProfileIntervals, EndWhereTheFunctionDoesAlthoughTheChiSquareIsSmallThere) {
  FitCase fit("SQR(a)+0*x", "a");
  fit.data({0, 1}, {1, 1}, {1, 1});
  fit.start({1.2});
  EXPECT_NEAR(*intervalsOf(fit)[0][1].low, 0, 5E-7);
}

TEST(ProfileIntervals, AreFoundBesideAPole) {
  // One point: 1 / (2 - a) with the error 0.99 is 1.99 shortly before it has no bounds.
  FitCase fit("1/(2-a)+0*x", "a");
  fit.data({0, 1}, {1, 1}, {0.99 * std::sqrt(2.0), 0.99 * std::sqrt(2.0)});
  fit.start({0.5});
  EXPECT_NEAR(*intervalsOf(fit)[0][0].high, 2 - 1 / 1.99, kMinimum);
}

TEST(ProfileIntervals, LeaveConstantParametersOut) {
  FitCase fit("b*x+c", "b,c");
  fit.data(kFive, kLineY, kTenths);
  fit.start({1, 0}, "c");
  EXPECT_EQ(intervalsOf(fit).size(), 1u);
}

}  // namespace
}  // namespace vk
