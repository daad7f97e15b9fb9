#include "grafile/NiceLimits.h"

#include <limits>

#include "doubles/ErrorOf.h"

namespace vk {
namespace {

struct Interval {
  double low, high, niceLow, niceHigh;
  int divisions;
};

void PrintTo(const Interval& interval, std::ostream* out) {
  *out << interval.low << " to " << interval.high;
}

class NiceLimitsTest : public ::testing::TestWithParam<Interval> {};

TEST_P(NiceLimitsTest, RoundsOutward) {
  const Interval& wanted = GetParam();
  double low = wanted.low, high = wanted.high;
  Int16 divisions;
  NiceLimits(low, high, divisions);
  EXPECT_DOUBLE_EQ(low, wanted.niceLow);
  EXPECT_DOUBLE_EQ(high, wanted.niceHigh);
  EXPECT_EQ(divisions, wanted.divisions);
}

INSTANTIATE_TEST_SUITE_P(Intervals, NiceLimitsTest,
                         ::testing::Values(Interval{0.3, 9.7, 0, 10, 10}, Interval{1, 2.5, 1, 2.6, 8},
                                           Interval{100, 350, 100, 350, 5}, Interval{0, 1000, 0, 1000, 5},
                                           Interval{-1, 1, -1, 1, 4}, Interval{-0.31, 0.52, -0.4, 0.6, 10},
                                           Interval{-9.9, -0.1, -10, 0, 10},
                                           Interval{0.0031, 0.0049, 0.003, 0.005, 10},
                                           Interval{1e10, 4e10, 1e10, 4e10, 6}));

TEST(NiceLimits, AnEmptyIntervalFailsAndLeavesAllThree) {
  double low = 3, high = 3;
  Int16 divisions = 7;
  EXPECT_EQ(errorOf([&] { NiceLimits(low, high, divisions); }), kInvalidCall);
  high = 2;
  EXPECT_EQ(errorOf([&] { NiceLimits(low, high, divisions); }), kInvalidCall);
  EXPECT_EQ(low, 3);
  EXPECT_EQ(high, 2);
  EXPECT_EQ(divisions, 7);
}

TEST(NiceLimits, ASpanBeyondTheNumbersFailsAndLeavesAllThree) {
  constexpr double kLargest = std::numeric_limits<double>::max();
  double low = -kLargest, high = kLargest;
  Int16 divisions = 7;
  EXPECT_EQ(errorOf([&] { NiceLimits(low, high, divisions); }), kOverflow);
  EXPECT_EQ(low, -kLargest);
  EXPECT_EQ(high, kLargest);
  EXPECT_EQ(divisions, 7);
}

TEST(RangeOf, GivesSmallestAndLargestOfTheFirstValues) {
  Array<double> values(4);
  values[0] = -100;
  values[1] = 2;
  values[2] = -3;
  values[3] = 5;
  values[4] = 100;
  double min = 0, max = 0;
  RangeOf(min, max, values, 3);
  EXPECT_EQ(min, -3);
  EXPECT_EQ(max, 5);
}

TEST(RangeOf, AnEmptyRangeLeavesBoth) {
  double min = 1, max = 2;
  RangeOf(min, max, Array<double>(3), 0);
  EXPECT_EQ(min, 1);
  EXPECT_EQ(max, 2);
}

}  // namespace
}  // namespace vk
