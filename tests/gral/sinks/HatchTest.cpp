#include "gral/sinks/Hatch.h"

#include <cmath>
#include <string>

#include "gral/DeviceTypes.h"

namespace vk {
namespace {

std::string hatchedRow(int style, int y) {
  std::string row;
  for (int x = 0; x < 16; ++x) row += onHatch(style, x, y, kHatchCell) ? '#' : '.';
  return row;
}

TEST(Hatches, HaveALineInEachCell) {
  EXPECT_EQ(hatchedRow(kFillHorizontal, 8), "################");
  EXPECT_EQ(hatchedRow(kFillHorizontal, 9), "................");
  EXPECT_EQ(hatchedRow(kFillVertical, 9), "#.......#.......");
  EXPECT_EQ(hatchedRow(kFillUpward, 1), ".......#.......#");
  EXPECT_EQ(hatchedRow(kFillDownward, 1), ".#.......#......");
  EXPECT_EQ(hatchedRow(kFillCross, 1), "#.......#.......");
  EXPECT_EQ(hatchedRow(kFillDiagonalCross, 1), ".#.....#.#.....#");
  EXPECT_EQ(hatchedRow(kFillTransparent, 0), "................");
}

TEST(Hatches, HaveLinesAsWideAsANominalPixel) {
  EXPECT_TRUE(onHatch(kFillVertical, 33, 5, 4 * kHatchCell));
  EXPECT_TRUE(onHatch(kFillVertical, 35, 5, 4 * kHatchCell));
  EXPECT_FALSE(onHatch(kFillVertical, 36, 5, 4 * kHatchCell));
}

TEST(Hatches, AreLinesThroughABox) {
  const auto lines = hatchLines(kFillCross, {10, 130}, {110, 230});
  ASSERT_EQ(lines.size(), 2U);
  EXPECT_EQ(lines[0].from.y, 127.5);
  EXPECT_EQ(lines[0].to.x, 110);
  EXPECT_EQ(lines[1].from.x, 7.5);
  EXPECT_EQ(lines[1].to.y, 230);
  for (const auto& [from, to] : hatchLines(kFillUpward, {10, 130}, {110, 230})) {
    EXPECT_EQ(std::fmod(from.x + from.y, 120), 0);
    EXPECT_EQ(to.x - from.x, from.y - to.y);
  }
  for (const auto& [from, to] : hatchLines(kFillDownward, {10, 130}, {110, 230})) {
    EXPECT_EQ(std::fmod(from.x - from.y, 120), 0);
    EXPECT_EQ(to.x - from.x, to.y - from.y);
  }
  EXPECT_TRUE(hatchLines(kFillSolid, {0, 0}, {240, 240}).empty());
}

}  // namespace
}  // namespace vk
