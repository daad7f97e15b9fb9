#include "gral/Shade.h"

#include "SurfaceFixture.h"

namespace vk {
namespace {

TEST(Hues, RunFromRedThroughGreenAndBlue) {
  EXPECT_EQ(HsbToRgb(0, 1, 0.5), Colour::fromChannels(255, 0, 0));
  EXPECT_EQ(HsbToRgb(1.0 / 6, 1, 0.5), Colour::fromChannels(255, 255, 0));
  EXPECT_EQ(HsbToRgb(1.0 / 3, 1, 0.5), Colour::fromChannels(0, 255, 0));
  EXPECT_EQ(HsbToRgb(0.5, 1, 0.5), Colour::fromChannels(0, 255, 255));
  EXPECT_EQ(HsbToRgb(2.0 / 3, 1, 0.5), Colour::fromChannels(0, 0, 255));
  EXPECT_EQ(HsbToRgb(5.0 / 6, 1, 0.5), Colour::fromChannels(255, 0, 255));
}

TEST(Hues, RiseAndFallInASixthOfATurn) {
  EXPECT_EQ(HsbToRgb(1.0 / 12, 1, 0.5), Colour::fromChannels(255, 128, 0));
  EXPECT_EQ(HsbToRgb(0.25, 1, 0.5), Colour::fromChannels(128, 255, 0));
  EXPECT_EQ(HsbToRgb(0.6, 1, 0.5), Colour::fromChannels(0, 102, 255));
}

TEST(Hues, CountWithoutTheirSignAndWholeTurns) {
  EXPECT_EQ(HsbToRgb(1, 1, 0.5), HsbToRgb(0, 1, 0.5));
  EXPECT_EQ(HsbToRgb(3.25, 1, 0.5), HsbToRgb(0.25, 1, 0.5));
  EXPECT_EQ(HsbToRgb(-0.25, 1, 0.5), HsbToRgb(0.25, 1, 0.5));
}

TEST(Saturations, RunFromGreyToTheFullColour) {
  EXPECT_EQ(HsbToRgb(0, 0, 0.5), Colour::fromChannels(128, 128, 128));
  EXPECT_EQ(HsbToRgb(0.7, 0, 0.2), Colour::fromChannels(51, 51, 51));
  EXPECT_EQ(HsbToRgb(0.6, 0.5, 0.4), Colour::fromChannels(51, 92, 153));
  EXPECT_EQ(HsbToRgb(0.6, -0.5, 0.4), Colour::fromChannels(51, 92, 153));
  EXPECT_EQ(HsbToRgb(0.6, 1.5, 0.4), Colour::fromChannels(51, 92, 153));
}

TEST(Brightnesses, RunFromBlackThroughTheFullColourToWhite) {
  EXPECT_EQ(HsbToRgb(0.3, 0.8, 0), Colour::fromChannels(0, 0, 0));
  EXPECT_EQ(HsbToRgb(0, 1, 0.25), Colour::fromChannels(128, 0, 0));
  EXPECT_EQ(HsbToRgb(0, 1, 0.75), Colour::fromChannels(255, 128, 128));
  for (const double h : {0.0, 0.123, 0.5, 0.9}) {
    for (const double s : {0.0, 0.4, 1.0})
      EXPECT_EQ(HsbToRgb(h, s, 1), Colour::fromChannels(255, 255, 255)) << h << " " << s;
  }
  EXPECT_EQ(HsbToRgb(0.6, 0.5, -1.4), Colour::fromChannels(51, 92, 153));
}

TEST(Grays, AreFourthRootsOfTheShareThatIsSeen) {
  EXPECT_EQ(grayOf(0), 0);
  EXPECT_EQ(grayOf(1), 255);
  EXPECT_DOUBLE_EQ(grayOf(0.0625), 127.5);
  EXPECT_EQ(failureOf([] { grayOf(-0.1); }), 5);
}

TEST(Grays, OfFacesStayUnderTheFullColour) {
  const Array<float> hs = levelsOf({0.6, 0.5, 0.9});
  EXPECT_EQ(faceColor(100, false, hs), Colour::fromChannels(100, 100, 100));
  EXPECT_EQ(faceColor(204.8, true, hs), HsbToRgb(0.6F, 0.5F, 0.4));
  EXPECT_EQ(faceColor(255, true, levelsOf({0, 1, 0})), Colour::fromChannels(254, 0, 0));
}

}  // namespace
}  // namespace vk
