#include "base/Colour.h"

namespace vk {
namespace {

TEST(Colours, AreTheSameByEachName) {
  const Colour colour = Colour::fromRgb(0x123456);
  EXPECT_EQ(colour, Colour::fromBgr(0x563412));
  EXPECT_EQ(colour, Colour::fromChannels(0x12, 0x34, 0x56));
  EXPECT_EQ(colour.red(), 0x12);
  EXPECT_EQ(colour.green(), 0x34);
  EXPECT_EQ(colour.blue(), 0x56);
  EXPECT_EQ(colour.rgb(), 0x123456U);
  EXPECT_EQ(colour.bgr(), 0x563412);
}

TEST(Colours, AreBlackUntilTold) {
  EXPECT_EQ(Colour(), kBlack);
  EXPECT_EQ(kWhite, Colour::fromChannels(255, 255, 255));
}

TEST(Colours, HaveTwentyFourBits) {
  EXPECT_EQ(Colour::fromRgb(0xFF123456), Colour::fromRgb(0x123456));
  EXPECT_EQ(Colour::fromBgr(-1), kWhite);
}

}  // namespace
}  // namespace vk
