#include "platform/system/SystemClock.h"

#include <cstdlib>
#include <ctime>

namespace vk {
namespace {

using std::chrono::system_clock;

/// A moment of 1 January 1970 in a zone one hour east of Greenwich.
float atLocalHourOne(std::chrono::milliseconds sinceEpoch) {
  ::setenv("TZ", "XYZ-1", 1);
  ::tzset();
  const float seconds = secondsOfDay(system_clock::time_point(sinceEpoch));
  ::unsetenv("TZ");
  ::tzset();
  return seconds;
}

TEST(SystemClock, CountsFromTheLocalMidnight) {
  using std::chrono::milliseconds;
  EXPECT_EQ(atLocalHourOne(milliseconds(0)), 3600);
  EXPECT_EQ(atLocalHourOne(milliseconds(2500)), 3602.5F);
  EXPECT_EQ(atLocalHourOne(std::chrono::hours(23)), 0);
}

TEST(SystemClock, NeverReachesTheNextMidnight) {
  const auto last = std::chrono::hours(23) - std::chrono::milliseconds(1);
  EXPECT_EQ(atLocalHourOne(last), 86399.9921875F);
}

TEST(SystemClock, GoesOn) {
  SystemClock clock;
  const float before = secondsOfDay(system_clock::now());
  const float now = clock.timer();
  const float after = secondsOfDay(system_clock::now());
  EXPECT_TRUE(after < before || (before <= now && now <= after));
  EXPECT_GE(now, 0);
  EXPECT_LT(now, 86400);
}

}  // namespace
}  // namespace vk
