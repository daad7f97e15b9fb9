#include "gral/Shade.h"

#include "SurfaceFixture.h"

namespace vk {
namespace {

constexpr Color rgb(int red, int green, int blue) {
  return red | green << 8 | blue << 16;
}

TEST(Hues, RunFromRedThroughGreenAndBlue) {
  EXPECT_EQ(HsbToRgb(0, 1, 0.5), rgb(255, 0, 0));
  EXPECT_EQ(HsbToRgb(1.0 / 6, 1, 0.5), rgb(255, 255, 0));
  EXPECT_EQ(HsbToRgb(1.0 / 3, 1, 0.5), rgb(0, 255, 0));
  EXPECT_EQ(HsbToRgb(0.5, 1, 0.5), rgb(0, 255, 255));
  EXPECT_EQ(HsbToRgb(2.0 / 3, 1, 0.5), rgb(0, 0, 255));
  EXPECT_EQ(HsbToRgb(5.0 / 6, 1, 0.5), rgb(255, 0, 255));
}

TEST(Hues, RiseAndFallInASixthOfATurn) {
  EXPECT_EQ(HsbToRgb(1.0 / 12, 1, 0.5), rgb(255, 128, 0));
  EXPECT_EQ(HsbToRgb(0.25, 1, 0.5), rgb(128, 255, 0));
  EXPECT_EQ(HsbToRgb(0.6, 1, 0.5), rgb(0, 102, 255));
}

TEST(Hues, CountWithoutTheirSignAndWholeTurns) {
  EXPECT_EQ(HsbToRgb(1, 1, 0.5), HsbToRgb(0, 1, 0.5));
  EXPECT_EQ(HsbToRgb(3.25, 1, 0.5), HsbToRgb(0.25, 1, 0.5));
  EXPECT_EQ(HsbToRgb(-0.25, 1, 0.5), HsbToRgb(0.25, 1, 0.5));
}

TEST(Saturations, RunFromGreyToTheFullColour) {
  EXPECT_EQ(HsbToRgb(0, 0, 0.5), rgb(128, 128, 128));
  EXPECT_EQ(HsbToRgb(0.7, 0, 0.2), rgb(51, 51, 51));
  EXPECT_EQ(HsbToRgb(0.6, 0.5, 0.4), rgb(51, 92, 153));
  EXPECT_EQ(HsbToRgb(0.6, -0.5, 0.4), rgb(51, 92, 153));
  EXPECT_EQ(HsbToRgb(0.6, 1.5, 0.4), rgb(51, 92, 153));
}

TEST(Brightnesses, RunFromBlackThroughTheFullColourToWhite) {
  EXPECT_EQ(HsbToRgb(0.3, 0.8, 0), rgb(0, 0, 0));
  EXPECT_EQ(HsbToRgb(0, 1, 0.25), rgb(128, 0, 0));
  EXPECT_EQ(HsbToRgb(0, 1, 0.75), rgb(255, 128, 128));
  for (const double h : {0.0, 0.123, 0.5, 0.9}) {
    for (const double s : {0.0, 0.4, 1.0}) EXPECT_EQ(HsbToRgb(h, s, 1), rgb(255, 255, 255)) << h << " " << s;
  }
  EXPECT_EQ(HsbToRgb(0.6, 0.5, -1.4), rgb(51, 92, 153));
}

TEST(Grays, AreFourthRootsOfTheShareThatIsSeen) {
  EXPECT_EQ(grayOf(0), 0);
  EXPECT_EQ(grayOf(1), 255);
  EXPECT_DOUBLE_EQ(grayOf(0.0625), 127.5);
  EXPECT_EQ(failureOf([] { grayOf(-0.1); }), 5);
}

TEST(Grays, OfFacesStayUnderTheFullColour) {
  const Array<float> hs = levelsOf({0.6, 0.5, 0.9});
  EXPECT_EQ(faceColor(100, false, hs), rgb(100, 100, 100));
  EXPECT_EQ(faceColor(204.8, true, hs), HsbToRgb(0.6F, 0.5F, 0.4));
  EXPECT_EQ(faceColor(255, true, levelsOf({0, 1, 0})), rgb(254, 0, 0));
}

}  // namespace
}  // namespace vk
