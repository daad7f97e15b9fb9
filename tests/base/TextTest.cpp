#include "base/Text.h"

#include <gtest/gtest.h>

namespace vk {
namespace {

TEST(Text, CutsLikeThePositionsSay) {
  EXPECT_EQ(trim("  a b  "), "a b");
  EXPECT_EQ(trim("\ta "), "\ta");
  EXPECT_EQ(left("abc", 2), "ab");
  EXPECT_EQ(right("abc", 2), "bc");
  EXPECT_EQ(right("abc", 5), "abc");
  EXPECT_EQ(right("abc", 0), "");
  EXPECT_EQ(mid("abc", 2), "bc");
  EXPECT_EQ(mid("abc", 4), "");
  EXPECT_EQ(mid("abc", 2, 1), "b");
  EXPECT_EQ(mid("abc", 0, 2), "");
  EXPECT_EQ(position("banana", "an"), 2);
  EXPECT_EQ(position("banana", "an", 3), 4);
  EXPECT_EQ(position("banana", "x"), 0);
  EXPECT_EQ(position("banana", "b", 0), 0);
  EXPECT_EQ(upper("a\xE0z"), "A\xE0Z");
  EXPECT_EQ(shortened("0123456789", 10), "0123456789");
  EXPECT_EQ(shortened("0123456789A", 9), "012...89A");
  EXPECT_EQ(shortened("0123456789A", 10), "012...89A");
}

}  // namespace
}  // namespace vk
