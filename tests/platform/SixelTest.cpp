#include "platform/system/Sixel.h"

#include <gtest/gtest.h>

#include <vector>

#include "doubles/ResourceLimit.h"

namespace vk {
namespace {

const std::vector<std::uint32_t> kPixels(36, 0xFF0000);

TEST(Sixels, AreTextBetweenTheSignsOfTerminals) {
  const auto sixels = sixelsOf(kPixels, 6, 6);
  ASSERT_TRUE(sixels.has_value());
  EXPECT_TRUE(sixels->starts_with("\x1BP"));
  EXPECT_TRUE(sixels->ends_with("\x1B\\"));
}

TEST(Sixels, AreNoneOfAPictureWithoutPixels) {
  EXPECT_EQ(sixelsOf({}, 0, 0), std::nullopt);
}

TEST(Sixels, AreNoneWhereTheirLibraryCannotBeOpened) {
  const ResourceLimit files(RLIMIT_NOFILE, 0);
  EXPECT_EQ(sixelsOf(kPixels, 6, 6), std::nullopt);
}

}  // namespace
}  // namespace vk
