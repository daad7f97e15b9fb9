#include "ui/layout/CharFrame.h"

namespace vk {
namespace {

constexpr CellSize kCell{100, 200};
constexpr Colour kGrey = Colour::fromChannels(128, 128, 128);

std::vector<Colour> colours(const std::vector<ColouredLine>& lines) {
  std::vector<Colour> result;
  for (const ColouredLine& line : lines) result.push_back(line.colour);
  return result;
}

TEST(CharFrame, RunsThroughTheCentresOfTheCornerCells) {
  const auto lines = frameLines({2, 3, 5, 9, 3}, kCell, kWhite);
  ASSERT_EQ(lines.size(), 8u);
  // bottom, right, top, left
  EXPECT_EQ(lines[0], (ColouredLine{250, 900, 850, 900, kBlack}));
  EXPECT_EQ(lines[1], (ColouredLine{850, 300, 850, 900, kBlack}));
  EXPECT_EQ(lines[2], (ColouredLine{250, 300, 850, 300, kGrey}));
  EXPECT_EQ(lines[3], (ColouredLine{250, 300, 250, 900, kGrey}));
}

TEST(CharFrame, SortsItsCorners) {
  EXPECT_EQ(frameLines({5, 9, 2, 3, 3}, kCell, kWhite), frameLines({2, 3, 5, 9, 3}, kCell, kWhite));
}

TEST(CharFrame, TheSecondRectangleIsOnePixelSmallerOnEachSide) {
  const auto lines = frameLines({2, 3, 5, 9, 3}, kCell, kWhite);
  EXPECT_EQ(lines[4], (ColouredLine{265, 885, 835, 885, kBlack}));
  EXPECT_EQ(lines[5], (ColouredLine{835, 315, 835, 885, kGrey}));
}

TEST(CharFrame, Style2RepeatsTheTonesAndStyle3TurnsThem) {
  const auto raised = colours(frameLines({1, 1, 3, 3, 2}, kCell, kWhite));
  EXPECT_THAT(raised, testing::ElementsAre(kBlack, kBlack, kGrey, kGrey, kBlack, kBlack, kGrey, kGrey));
  const auto engraved = colours(frameLines({1, 1, 3, 3, 3}, kCell, kWhite));
  EXPECT_EQ(engraved[4], kBlack) << "bottom";
  EXPECT_EQ(engraved[5], kGrey) << "right";
}

TEST(CharFrame, TheLightToneIsWhiteUnlessTheFormIsWhite) {
  const auto lines = frameLines({1, 1, 3, 3, 3}, kCell, Colour::fromChannels(220, 220, 220));
  EXPECT_EQ(lines[2].colour, kWhite);
}

}  // namespace
}  // namespace vk
