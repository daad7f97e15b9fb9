#include "base/Int16.h"

#include "doubles/ErrorOf.h"

namespace vk {
namespace {

TEST(Int16, RefusesWhatDoesNotFit) {
  Int16 value = 32767;
  EXPECT_EQ(errorOf([&] { value += 1; }), kOverflow);
  EXPECT_EQ(value, 32767);
  value = -32768;
  EXPECT_EQ(errorOf([&] { --value; }), kOverflow);
  EXPECT_EQ(errorOf([&] { value = 40000; }), kOverflow);
}

TEST(Flag, IsMinusOneOrZeroUnderBitwiseOperators) {
  const Flag yes = toFlag(true);
  const Flag no = toFlag(false);
  EXPECT_EQ(yes, -1);
  EXPECT_EQ(no, 0);
  EXPECT_EQ(yes & no, 0);
  EXPECT_EQ(~yes, 0);
  EXPECT_EQ(~no, -1);
}

}  // namespace
}  // namespace vk
