#include "gral/sinks/FloodPictures.h"

#include <functional>
#include <random>

#include "gral/PictureCatcher.h"
#include "gral/RasterForm.h"
#include "gral/sinks/PictureBoxes.h"

namespace vk {
namespace {

/// A sheet of 100 x 50 nominal pixels with a box in thin lines, filled in red.
DisplayList sheetWithAFilledBox() {
  DisplayList list;
  list.clear({1500, 750}, kWhite);
  list.pen({});
  list.box({150, 150}, {600, 450});
  list.filling({Colour::fromBgr(0x0000FF), kFillSolid});
  list.floodFill({20, 20}, kBlack);
  return list;
}

/// What reaches a sink of vectors when this is drawn on it.
PictureCatcher caught(const DisplayList& list) {
  BlockLetters letters;
  PictureCatcher sink;
  replayAsVectors(list, sink, letters, {1, 1});
  return sink;
}

TEST(FloodPictures, FilledAreaIsAPictureInItsPlace) {
  DisplayList list = sheetWithAFilledBox();
  list.line({0, 0}, {15, 15});
  const PictureCatcher sink = caught(list);
  ASSERT_EQ(sink.pictures.size(), 2U);
  EXPECT_EQ(sink.lines.size(), 7U);
  EXPECT_EQ(sink.lines[5].substr(0, 8), "picture ");
  EXPECT_EQ(sink.lines[6], "line 0,0 15,15 tw");
  const Picture& picture = sink.pictures[1];
  // The lines are 15 twips wide, so the area inside reaches from 157.5 to 592.5 and from 157.5 to 442.5.
  EXPECT_EQ(picture.twipsPerPixel, 3.75);
  EXPECT_NEAR(sink.corners[1].x, 157.5, 3.75);
  EXPECT_NEAR(sink.corners[1].y, 157.5, 3.75);
  EXPECT_NEAR(sink.corners[1].x + picture.width * 3.75, 592.5, 3.75);
  EXPECT_NEAR(sink.corners[1].y + picture.height * 3.75, 442.5, 3.75);
  EXPECT_EQ(std::count(picture.pixels.begin(), picture.pixels.end(), kRed), picture.width * picture.height);
}

TEST(FloodPictures, RimOfTheAreaIsUnderItsLines) {
  DisplayList list = sheetWithAFilledBox();
  const PictureCatcher sink = caught(list);
  ASSERT_EQ(sink.pictures.size(), 2U);
  EXPECT_EQ(sink.lines[0].substr(0, 6), "clear ");
  EXPECT_EQ(sink.lines[1].substr(0, 8), "picture ");
  // Three pixels of the four of the line, and as many of the area; nothing at the corners.
  const Picture &rim = sink.pictures[0], &area = sink.pictures[1];
  EXPECT_EQ(sink.corners[0].x, sink.corners[1].x - 3 * 3.75);
  EXPECT_EQ(sink.corners[0].y, sink.corners[1].y - 3 * 3.75);
  EXPECT_EQ(rim.width, area.width + 6);
  EXPECT_EQ(rim.height, area.height + 6);
  const auto pixel = [&rim](int x, int y) {
    return rim.pixels[static_cast<std::size_t>(y) * static_cast<std::size_t>(rim.width) +
                      static_cast<std::size_t>(x)];
  };
  for (int x = 0; x < 12; ++x) EXPECT_EQ(pixel(x, rim.height / 2), x < 6 ? kRed : 0U) << x;
  EXPECT_EQ(pixel(0, 0), 0U);
}

TEST(FloodPictures, RimIsAboveTheAreaThatTheLinesAreDrawnOn) {
  DisplayList list;
  list.clear({1500, 750}, kWhite);
  list.pen({});
  list.filledBox({150, 150}, {600, 450}, kWhite);
  list.box({150, 150}, {600, 450});
  list.filling({Colour::fromBgr(0x0000FF), kFillSolid});
  list.floodFill({20, 20}, kBlack);
  const PictureCatcher sink = caught(list);
  ASSERT_EQ(sink.lines.size(), 8U);
  EXPECT_EQ(sink.lines[1].substr(0, 8), "picture ");  // what lies outside the box that is filled
  EXPECT_EQ(sink.lines[3].substr(0, 10), "filledbox ");
  EXPECT_EQ(sink.lines[4].substr(0, 8), "picture ");
  EXPECT_EQ(sink.lines[5].substr(0, 4), "box ");
  EXPECT_EQ(sink.lines[7].substr(0, 8), "picture ");
}

TEST(FloodPictures, RimIsAboveAnAreaOfAnyForm) {
  const auto circle = [](DisplayList& list) { list.circle({375, 300}, Twips(600)); };
  const auto figure = [](DisplayList& list) {
    const std::vector<PixelPoint> corners{{0, 0}, {100, 0}, {100, 50}, {0, 50}};
    list.figure(corners, true, false);
  };
  const auto picture = [](DisplayList& list) {
    list.picture({100, 50, 15, std::vector<std::uint32_t>(100 * 50, kPaper)}, {0, 0});
  };
  for (const std::function<void(DisplayList&)>& draw :
       {std::function<void(DisplayList&)>(circle), {figure}, {picture}}) {
    DisplayList list;
    list.clear({1500, 750}, kWhite);
    list.pen({});
    list.filling({kWhite, kFillSolid});
    draw(list);
    list.box({150, 150}, {600, 450});
    list.filling({Colour::fromBgr(0x0000FF), kFillSolid});
    list.floodFill({20, 20}, kBlack);
    const PictureCatcher sink = caught(list);
    // The area lies under the whole box, whose rim is between both.
    ASSERT_EQ(sink.lines.size(), 8U) << sink.lines[3];
    EXPECT_EQ(sink.lines[4].substr(0, 8), "picture ") << sink.lines[3];
    EXPECT_EQ(sink.lines[5].substr(0, 4), "box ") << sink.lines[3];
    EXPECT_EQ(sink.lines[7].substr(0, 8), "picture ") << sink.lines[3];
  }
}

/// Each reaches under the right side of the box.
TEST(FloodPictures, RimIsUnderWhatIsNoAreaOfAnotherColour) {
  const PixelPoint corners[] = {{40, 10}, {60, 10}, {60, 30}, {40, 30}};
  const std::function<void(DisplayList&)> drawings[] = {
      [](DisplayList& list) {
        list.line({600, 150}, {600, 450});
      },
      [&](DisplayList& list) { list.bezier(corners); },
      [&](DisplayList& list) { list.figure(corners, false, true); },
      [](DisplayList& list) {
        list.filledBox({595, 150}, {900, 450}, kBlack);
      },
      [](DisplayList& list) {
        list.circle({750, 300}, Twips(155));
      },
      [&](DisplayList& list) {
        list.filling({kBlack, kFillSolid});
        list.circle({750, 300}, Twips(155));
        list.figure(corners, true, false);
      }};
  for (std::size_t i = 0; i < std::size(drawings); ++i) {
    DisplayList list;
    list.clear({1500, 750}, kWhite);
    list.pen({});
    drawings[i](list);
    list.box({150, 150}, {600, 450});
    list.filling({Colour::fromBgr(0x0000FF), kFillSolid});
    list.floodFill({20, 20}, kBlack);
    const PictureCatcher sink = caught(list);
    ASSERT_EQ(sink.pictures.size(), 2U) << i;
    EXPECT_EQ(sink.lines[1].substr(0, 8), "picture ") << i;
    EXPECT_EQ(sink.pictures[0].width, sink.pictures[1].width + 6) << i;
  }
}

TEST(FloodPictures, EachSheetHasItsRims) {
  DisplayList list = sheetWithAFilledBox();
  list.clear({1500, 750}, kWhite);
  list.box({150, 150}, {300, 300});
  list.floodFill({15, 15}, kBlack);
  const PictureCatcher sink = caught(list);
  ASSERT_EQ(sink.pictures.size(), 4U);
  EXPECT_EQ(sink.lines[6].substr(0, 6), "clear ");
  EXPECT_EQ(sink.lines[7].substr(0, 8), "picture ");
  EXPECT_EQ(sink.pictures[2].width, sink.pictures[3].width + 6);
}

TEST(FloodPictures, AreaUpToTheGroundStaysOffTheGround) {
  DisplayList list;
  list.clear({1500, 750}, kWhite);
  list.filledBox({150, 150}, {600, 450}, Colour::fromBgr(0x00FF00));
  list.filling({Colour::fromBgr(0x0000FF), kFillSolid});
  list.floodFill({20, 20}, kWhite);
  const PictureCatcher sink = caught(list);
  EXPECT_EQ(sink.pictures.size(), 1U);
}

TEST(FloodPictures, SecondFillingSeesTheFirst) {
  DisplayList list = sheetWithAFilledBox();
  list.filling({Colour::fromBgr(0x00FF00), kFillSolid});
  list.floodFill({0, 0}, Colour::fromBgr(0x0000FF));
  const PictureCatcher sink = caught(list);
  ASSERT_EQ(sink.pictures.size(), 4U);
  const Picture& around = sink.pictures[3];
  EXPECT_EQ(around.width, 400);
  EXPECT_EQ(around.height, 200);
  EXPECT_EQ(std::count(around.pixels.begin(), around.pixels.end(), 0U),
            sink.pictures[2].width * sink.pictures[2].height);
}

TEST(FloodPictures, PixelsAndPensHaveTheirUnitsOnPaper) {
  // 600 dots to the inch: 6.25 to a nominal pixel
  DisplayList list;
  list.pen({kBlack, 50, kDrawSolid});
  list.box({150, 150}, {750, 750});
  list.filling({Colour::fromBgr(0x0000FF), kFillSolid});
  list.floodFill({187, 187}, kBlack);
  BlockLetters letters;
  PictureCatcher sink;
  replayAsVectors(list, sink, letters, {6.25, 0.16}, {1500, 1500});
  ASSERT_EQ(sink.pictures.size(), 2U);
  // a pen of 50 dots is 120 twips wide
  EXPECT_NEAR(sink.corners[1].x, 210, 3.75);
  EXPECT_NEAR(sink.pictures[1].width * 3.75, 480, 7.5);
}

TEST(FloodPictures, NothingFilledIsNoPicture) {
  DisplayList list;
  list.clear({1500, 750}, kWhite);
  list.filling({Colour::fromBgr(0x0000FF), kFillSolid});
  list.floodFill({20, 20}, kWhite);
  const PictureCatcher sink = caught(list);
  EXPECT_TRUE(sink.pictures.empty());
}

TEST(PictureBoxes, AreOneWhereRowsAreAlike) {
  const std::uint32_t a = kInk, b = kRed;
  const Picture picture{4,
                        4,
                        15,
                        {a, a, 0, b,  //
                         a, a, 0, b,  //
                         0, a, a, b,  //
                         0, 0, 0, 0}};
  EXPECT_EQ(boxesOf(picture), (std::vector<PictureBox>{{0, 0, 2, 2, a}, {3, 0, 1, 3, b}, {1, 2, 2, 1, a}}));
}

TEST(PictureBoxes, CoverEachPixelOnce) {
  std::mt19937 random(3);
  std::uniform_int_distribution<int> choice(0, 3);
  Picture picture{37, 29, 15, std::vector<std::uint32_t>(37 * 29)};
  for (std::uint32_t& pixel : picture.pixels) {
    const int kind = choice(random);
    pixel = kind == 0 ? 0 : kind == 1 ? kRed : kInk;
  }
  std::vector<std::uint32_t> painted(picture.pixels.size());
  for (const PictureBox& box : boxesOf(picture)) {
    for (int y = box.y; y < box.y + box.height; ++y) {
      for (int x = box.x; x < box.x + box.width; ++x) {
        std::uint32_t& pixel = painted[static_cast<std::size_t>(y * 37 + x)];
        EXPECT_EQ(pixel, 0U);
        pixel = box.color;
      }
    }
  }
  EXPECT_EQ(painted, picture.pixels);
}

}  // namespace
}  // namespace vk
