#include "base/Array.h"

#include "doubles/ErrorOf.h"

namespace vk {
namespace {

TEST(Array, ChecksEveryIndex) {
  Array<int> a(3);
  a[3] = 7;
  EXPECT_EQ(a[3], 7);
  EXPECT_EQ(errorOf([&] { a[4] = 1; }), kIndexOutOfRange);
  EXPECT_EQ(errorOf([&] { a[-1] = 1; }), kIndexOutOfRange);
  a.redim(5);
  EXPECT_EQ(a[3], 7);
  a.dim(3);
  EXPECT_EQ(a[3], 0);
  EXPECT_TRUE(a.span(1, 0).empty());
  EXPECT_EQ(a.span(1, 3).size(), 3U);
}

}  // namespace
}  // namespace vk
