#include "ui/layout/CharFrame.h"

namespace vk {
namespace {

constexpr CellSize kCell{100, 200};
constexpr Colour kGrey = RGB(128, 128, 128);

std::vector<Colour> colours(const std::vector<ColouredLine>& lines) {
  std::vector<Colour> result;
  for (const ColouredLine& line : lines) result.push_back(line.colour);
  return result;
}

TEST(CharFrame, RunsThroughTheCentresOfTheCornerCells) {
  const auto lines = frameLines({2, 3, 5, 9, 3}, kCell, kPaperWhite);
  ASSERT_EQ(lines.size(), 8u);
  // bottom, right, top, left
  EXPECT_EQ(lines[0], (ColouredLine{250, 900, 850, 900, kInkBlack}));
  EXPECT_EQ(lines[1], (ColouredLine{850, 300, 850, 900, kInkBlack}));
  EXPECT_EQ(lines[2], (ColouredLine{250, 300, 850, 300, kGrey}));
  EXPECT_EQ(lines[3], (ColouredLine{250, 300, 250, 900, kGrey}));
}

TEST(CharFrame, SortsItsCorners) {
  EXPECT_EQ(frameLines({5, 9, 2, 3, 3}, kCell, kPaperWhite), frameLines({2, 3, 5, 9, 3}, kCell, kPaperWhite));
}

TEST(CharFrame, TheSecondRectangleIsOnePixelSmallerOnEachSide) {
  const auto lines = frameLines({2, 3, 5, 9, 3}, kCell, kPaperWhite);
  EXPECT_EQ(lines[4], (ColouredLine{265, 885, 835, 885, kInkBlack}));
  EXPECT_EQ(lines[5], (ColouredLine{835, 315, 835, 885, kGrey}));
}

TEST(CharFrame, Style2RepeatsTheTonesAndStyle3TurnsThem) {
  const auto raised = colours(frameLines({1, 1, 3, 3, 2}, kCell, kPaperWhite));
  EXPECT_THAT(raised,
              testing::ElementsAre(kInkBlack, kInkBlack, kGrey, kGrey, kInkBlack, kInkBlack, kGrey, kGrey));
  const auto engraved = colours(frameLines({1, 1, 3, 3, 3}, kCell, kPaperWhite));
  EXPECT_EQ(engraved[4], kInkBlack) << "bottom";
  EXPECT_EQ(engraved[5], kGrey) << "right";
}

TEST(CharFrame, TheLightToneIsWhiteUnlessTheFormIsWhite) {
  const auto lines = frameLines({1, 1, 3, 3, 3}, kCell, RGB(220, 220, 220));
  EXPECT_EQ(lines[2].colour, kPaperWhite);
}

}  // namespace
}  // namespace vk
