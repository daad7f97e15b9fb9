#include <random>

#include "GralFixture.h"
#include "RasterForm.h"
#include "base/RuntimeError.h"
#include "gral/FloodPictures.h"
#include "gral/PictureBoxes.h"
#include "platform/Printer.h"

namespace vk {
namespace {

constexpr std::uint32_t kRed = 0xFFFF0000;

/// What is in the raster: "." paper, "#" black, "r" red.
std::vector<std::string> colouredRows(const Raster& raster) {
  std::vector<std::string> rows;
  for (int y = 0; y < raster.height(); ++y) {
    std::string row;
    for (int x = 0; x < raster.width(); ++x) {
      const std::uint32_t pixel = raster.at(x, y);
      row += pixel == kPaper ? '.' : pixel == kInk ? '#' : pixel == kRed ? 'r' : '?';
    }
    rows.push_back(row);
  }
  return rows;
}

using Rows = std::vector<std::string>;

// ---- Areas of a raster

class Areas : public ::testing::Test {
 protected:
  void draw(const Rows& rows) {
    raster.reset(static_cast<int>(rows[0].size()), static_cast<int>(rows.size()), kPaper);
    for (int y = 0; y < raster.height(); ++y) {
      for (int x = 0; x < raster.width(); ++x) {
        const char c = rows[static_cast<std::size_t>(y)][static_cast<std::size_t>(x)];
        if (c == '#') raster.set(x, y, kInk);
        if (c == 'r') raster.set(x, y, kRed);
      }
    }
  }
  Rows fill(int x, int y, std::uint32_t limit = kInk, int style = kFillSolid) {
    raster.paint(raster.areaAround({x, y}, limit), {kRed, style, 8});
    return colouredRows(raster);
  }
  Raster raster;
};

TEST_F(Areas, EndAtTheLimitColourAndDoNotPassBetweenItsCorners) {
  const Rows drawn{"..#....", ".#.#...", "#...#..", ".#.#...", "..#...."};
  draw(drawn);
  EXPECT_EQ(fill(2, 2), (Rows{"..#....", ".#r#...", "#rrr#..", ".#r#...", "..#...."}));
  draw(drawn);
  EXPECT_EQ(fill(6, 0), (Rows{"..#rrrr", ".#.#rrr", "#...#rr", ".#.#rrr", "..#rrrr"}));
}

TEST_F(Areas, HaveHolesAndBays) {
  draw({".........", ".#######.", ".#.....#.", ".#.###.#.", ".#.#.#.#.", ".#.....#.", ".#######."});
  EXPECT_EQ(fill(2, 2), (Rows{".........", ".#######.", ".#rrrrr#.", ".#r###r#.", ".#r#r#r#.", ".#rrrrr#.",
                              ".#######."}));
}

TEST_F(Areas, EveryColourButTheLimitIsPassedOver) {
  draw({"r.#..", "..#..", ".r#.."});
  EXPECT_EQ(fill(0, 1), (Rows{"rr#..", "rr#..", "rr#.."}));
  draw({"r.#..", "..#..", ".r#.."});
  EXPECT_EQ(fill(3, 1, kRed), (Rows{"rrrrr", "rrrrr", "rrrrr"}));
}

TEST_F(Areas, StartedOnTheLimitOrOutsideAreEmpty) {
  const Rows drawn{".#.", "...", "..."};
  draw(drawn);
  EXPECT_EQ(fill(1, 0), drawn);
  EXPECT_EQ(fill(-1, 0), drawn);
  EXPECT_EQ(fill(0, 3), drawn);
}

TEST_F(Areas, EndAtTheClipRegion) {
  draw({".....", ".....", ".....", "....."});
  const PixelRect region{1, 1, 4, 3};
  raster.clip(&region);
  EXPECT_EQ(fill(0, 0), (Rows{".....", ".....", ".....", "....."}));
  EXPECT_EQ(fill(3, 2), (Rows{".....", ".rrr.", ".rrr.", "....."}));
}

TEST_F(Areas, AreTheSameFromEachOfTheirPixels) {
  const Rows drawn{"#..#..#", ".#...#.", "..#.#..", ".......", "#.###.#", "..#.#..", "..#.#.."};
  draw(drawn);
  const Rows filled = fill(3, 3);
  for (int y = 0; y < 7; ++y) {
    for (int x = 0; x < 7; ++x) {
      if (filled[static_cast<std::size_t>(y)][static_cast<std::size_t>(x)] != 'r') continue;
      draw(drawn);
      EXPECT_EQ(fill(x, y), filled) << x << "," << y;
    }
  }
}

TEST_F(Areas, AreHatchedInTheWholePicturesPattern) {
  draw(Rows(16, std::string(16, '.')));
  const Rows filled = fill(5, 5, kInk, kFillHorizontal);
  EXPECT_EQ(filled[0], std::string(16, 'r'));
  EXPECT_EQ(filled[1], std::string(16, '.'));
  EXPECT_EQ(filled[8], std::string(16, 'r'));
}

TEST_F(Areas, StencilHoldsWhatWouldBePainted) {
  draw({".....", ".###.", ".#.#.", ".###.", "....."});
  PixelPoint corner;
  const Picture picture = raster.stencil(raster.areaAround({2, 2}, kInk), {kRed, kFillSolid, 8}, corner);
  EXPECT_EQ(corner, (PixelPoint{2, 2}));
  EXPECT_EQ(picture.width, 1);
  EXPECT_EQ(picture.pixels, std::vector<std::uint32_t>{kRed});
  const Picture around = raster.stencil(raster.areaAround({0, 0}, kInk), {kRed, kFillSolid, 8}, corner);
  EXPECT_EQ(around.width * around.height, 25);
  EXPECT_EQ(around.pixels[6], 0U);
  EXPECT_EQ(around.pixels[12], 0U);
  EXPECT_EQ(around.pixels[24], kRed);
  EXPECT_TRUE(raster.stencil({}, {kRed, kFillSolid, 8}, corner).pixels.empty());
  EXPECT_TRUE(
      raster.stencil(raster.areaAround({0, 0}, kInk), {kRed, kFillTransparent, 8}, corner).pixels.empty());
}

// ---- GralFill on a form of pixels

/// A drawing of 16 x 8 cm on pixels: 605 x 302.
class Fill : public ::testing::Test {
 protected:
  void SetUp() override {
    drawing.GralGrStr(form, "LANDSCAPE", 2);
    drawing.GralFillStyle(kFillSolid);
    drawing.GralFillColor(0x0000FF);
  }
  int count(std::uint32_t color) const {
    int pixels = 0;
    for (const std::uint32_t pixel : form.raster().pixels()) pixels += pixel == color;
    return pixels;
  }
  RecorderDevice printer{smallPage()};
  NominalScreen screen;
  RasterForm form{1};
  GralCls drawing{printer, screen};
};

TEST_F(Fill, FillsABoxUpToItsLines) {
  drawing.GralBox(2, 6, 4, 2, 0);
  drawing.GralFill(3, 4, kBlack);
  const int x1 = drawing.xUsr2Pixel(2), x2 = drawing.xUsr2Pixel(4);
  const int y1 = drawing.yUsr2Pixel(6), y2 = drawing.yUsr2Pixel(2);
  EXPECT_EQ(count(kRed), (x2 - x1 - 1) * (y2 - y1 - 1));
  EXPECT_EQ(form.raster().at(x1 + 1, y1 + 1), kRed);
  EXPECT_EQ(form.raster().at(x1, y1), kInk);
}

TEST_F(Fill, StartedOnALineOfTheLimitFillsNothing) {
  drawing.GralBox(2, 6, 4, 2, 0);
  drawing.GralFill(2, 4, kBlack);
  EXPECT_EQ(count(kRed), 0);
  drawing.GralFill(2, 4, 0x123456);
  EXPECT_EQ(count(kRed), 605 * 302);
}

TEST_F(Fill, RunsUpToTheClipRegion) {
  drawing.GralClip(4, 6, 10, 2);
  drawing.GralFill(5, 5, kBlack);
  // 4 cm and 10 cm are the columns 151 and 378, 6 cm and 2 cm from below the rows 76 and 226
  EXPECT_EQ(count(kRed), (378 - 151) * (226 - 76));
  EXPECT_EQ(form.raster().at(151, 76), kRed);
  EXPECT_EQ(form.raster().at(377, 225), kRed);
  EXPECT_EQ(form.raster().at(378, 225), kPaper);
  EXPECT_EQ(form.raster().at(377, 226), kPaper);
}

TEST_F(Fill, HasTheDevicesFilling) {
  drawing.GralFillColor(0x000000);
  drawing.GralFillStyle(kFillHorizontal);
  drawing.GralFill(5, 5, 0x0000FF);
  EXPECT_EQ(count(kInk), 605 * 38);
  drawing.GralFillStyle(kFillTransparent);
  drawing.GralFill(5, 5, 0x0000FF);
  EXPECT_EQ(count(kInk), 605 * 38);
}

TEST_F(Fill, DoesNotLeakThroughSlantedLines) {
  drawing.GralLine(2, 1, 7, 7.3);
  drawing.GralLine(7, 7.3, 11, 0.5);
  drawing.GralLine(11, 0.5, 2, 1);
  drawing.GralFill(7, 4, kBlack);
  EXPECT_EQ(form.raster().at(0, 0), kPaper);
  EXPECT_EQ(form.raster().at(604, 301), kPaper);
  EXPECT_GT(count(kRed), 10000);
}

TEST_F(Fill, IsAskedOfTheDeviceAtThePixel) {
  RecorderDevice recorder(FormMetrics{120, 405, 1});
  drawing.GralGrStr(recorder, "LANDSCAPE", 2);
  recorder.forget();
  drawing.GralFillColor(0x030201);
  drawing.GralFillStyle(kFillCross);
  drawing.GralXMap(0, 16, 0, 160);
  drawing.GralFill(40, 4, 0xFF8040);
  EXPECT_EQ(recorder.lines(),
            (std::vector<std::string>{"filling 010203 cross", "floodfill 151,151 px to 4080FF"}));
  DisplayList copy;
  recorder.list().replay(copy);
  EXPECT_EQ(copy.lines(), recorder.lines());
  EXPECT_TRUE(copy.needsPixels());
}

// ---- Fillings on vectors

/// Keeps pictures, and says which floods reach it.
class PictureCatcher : public LineWriter {
 public:
  std::vector<Picture> pictures;
  std::vector<double> places;
  void picture(const Picture& picture, double x, double y) override {
    pictures.push_back(picture);
    places.insert(places.end(), {x, y});
    LineWriter::picture(picture, x, y);
  }
};

/// A sheet of 100 x 50 nominal pixels with a box in thin lines, filled in red.
DisplayList sheetWithAFilledBox() {
  DisplayList list;
  list.clear(1500, 750, kWhite);
  list.pen({});
  list.box(150, 150, 600, 450);
  list.filling({0x0000FF, kFillSolid});
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
  list.line(0, 0, 15, 15);
  const PictureCatcher sink = caught(list);
  ASSERT_EQ(sink.pictures.size(), 2U);
  EXPECT_EQ(sink.lines.size(), 7U);
  EXPECT_EQ(sink.lines[5].substr(0, 8), "picture ");
  EXPECT_EQ(sink.lines[6], "line 0,0 15,15 tw");
  const Picture& picture = sink.pictures[1];
  // The lines are 15 twips wide, so the area inside reaches from 157.5 to 592.5 and from 157.5 to 442.5.
  EXPECT_EQ(picture.twipsPerPixel, 3.75);
  EXPECT_NEAR(sink.places[2], 157.5, 3.75);
  EXPECT_NEAR(sink.places[3], 157.5, 3.75);
  EXPECT_NEAR(sink.places[2] + picture.width * 3.75, 592.5, 3.75);
  EXPECT_NEAR(sink.places[3] + picture.height * 3.75, 442.5, 3.75);
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
  EXPECT_EQ(sink.places[0], sink.places[2] - 3 * 3.75);
  EXPECT_EQ(sink.places[1], sink.places[3] - 3 * 3.75);
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
  list.clear(1500, 750, kWhite);
  list.pen({});
  list.filledBox(150, 150, 600, 450, kWhite);
  list.box(150, 150, 600, 450);
  list.filling({0x0000FF, kFillSolid});
  list.floodFill({20, 20}, kBlack);
  const PictureCatcher sink = caught(list);
  ASSERT_EQ(sink.lines.size(), 8U);
  EXPECT_EQ(sink.lines[1].substr(0, 8), "picture ");  // what lies outside the box that is filled
  EXPECT_EQ(sink.lines[3].substr(0, 10), "filledbox ");
  EXPECT_EQ(sink.lines[4].substr(0, 8), "picture ");
  EXPECT_EQ(sink.lines[5].substr(0, 4), "box ");
  EXPECT_EQ(sink.lines[7].substr(0, 8), "picture ");
}

TEST(FloodPictures, EachSheetHasItsRims) {
  DisplayList list = sheetWithAFilledBox();
  list.clear(1500, 750, kWhite);
  list.box(150, 150, 300, 300);
  list.floodFill({15, 15}, kBlack);
  const PictureCatcher sink = caught(list);
  ASSERT_EQ(sink.pictures.size(), 4U);
  EXPECT_EQ(sink.lines[6].substr(0, 6), "clear ");
  EXPECT_EQ(sink.lines[7].substr(0, 8), "picture ");
  EXPECT_EQ(sink.pictures[2].width, sink.pictures[3].width + 6);
}

TEST(FloodPictures, AreaUpToTheGroundStaysOffTheGround) {
  DisplayList list;
  list.clear(1500, 750, kWhite);
  list.filledBox(150, 150, 600, 450, 0x00FF00);
  list.filling({0x0000FF, kFillSolid});
  list.floodFill({20, 20}, kWhite);
  const PictureCatcher sink = caught(list);
  EXPECT_EQ(sink.pictures.size(), 1U);
}

TEST(FloodPictures, SecondFillingSeesTheFirst) {
  DisplayList list = sheetWithAFilledBox();
  list.filling({0x00FF00, kFillSolid});
  list.floodFill({0, 0}, 0x0000FF);
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
  list.box(150, 150, 750, 750);
  list.filling({0x0000FF, kFillSolid});
  list.floodFill({187, 187}, kBlack);
  BlockLetters letters;
  PictureCatcher sink;
  replayAsVectors(list, sink, letters, {6.25, 0.16}, {1500, 1500});
  ASSERT_EQ(sink.pictures.size(), 2U);
  // a pen of 50 dots is 120 twips wide
  EXPECT_NEAR(sink.places[2], 210, 3.75);
  EXPECT_NEAR(sink.pictures[1].width * 3.75, 480, 7.5);
}

TEST(FloodPictures, NothingFilledIsNoPicture) {
  DisplayList list;
  list.clear(1500, 750, kWhite);
  list.filling({0x0000FF, kFillSolid});
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

// ---- Print of the screen

/// A printer that writes down in which orientation a picture and the end of a document reach it.
class WatchedPrinter : public RecorderDevice {
 public:
  WatchedPrinter() : RecorderDevice(smallPage()) {}
  std::vector<std::string> calls;
  void PaintPicture(const Picture& picture, double x, double y) override {
    calls.push_back("picture in " + std::to_string(Orientation()));
    RecorderDevice::PaintPicture(picture, x, y);
  }
  void EndDoc() override {
    if (fails) throw RuntimeError(kPrinterError);
    calls.push_back("end in " + std::to_string(Orientation()));
    RecorderDevice::EndDoc();
  }
  bool fails = false;
};

class PrintScreen : public ::testing::Test {
 protected:
  WatchedPrinter printer;
  NominalScreen screen;
  RasterForm form{1};
  GralCls drawing{printer, screen};
};

TEST_F(PrintScreen, PutsThePictureInTheMiddleOfTheTurnedSheet) {
  drawing.GralGrStr(form, "LANDSCAPE", 1);
  drawing.GralPrintScreen();
  // The sheet is 16 x 8 cm; the form is 8 x 4 cm in whole nominal pixels, 4530 x 2265 twips.
  const double x = (16 * kTwipsPerCmExact - 4530) / 2, y = (8 * kTwipsPerCmExact - 2265) / 2;
  ASSERT_EQ(printer.lines().size(), 1U);
  const std::vector<double> numbers = numbersOf(printer.lines()[0]);
  EXPECT_NEAR(numbers[0], x, 0.001);
  EXPECT_NEAR(numbers[1], y, 0.001);
  EXPECT_NE(printer.lines()[0].find("302x151 of 15 tw"), std::string::npos);
  EXPECT_EQ(printer.calls, (std::vector<std::string>{"picture in 2", "end in 2"}));
  EXPECT_EQ(printer.Orientation(), kPortrait);
}

TEST_F(PrintScreen, TurnsThePrinterBackToWhatItWas) {
  printer.setOrientation(kLandscape);
  drawing.GralGrStr(form, "PORTRAIT", 1);
  drawing.GralPrintScreen();
  EXPECT_EQ(printer.calls, (std::vector<std::string>{"picture in 1", "end in 1"}));
  EXPECT_EQ(printer.Orientation(), kLandscape);
  EXPECT_EQ(printer.documents(), 1);
}

TEST_F(PrintScreen, LargerFormBeginsAtHalfTheDifferenceAllTheSame) {
  drawing.GralGrStr(form, "LANDSCAPE", 4);
  drawing.GralPrintScreen();
  const std::vector<double> numbers = numbersOf(printer.lines()[0]);
  // 32 cm are 18141.7 twips and so 1209 pixels, 16 cm 605 pixels
  EXPECT_NEAR(numbers[0], (1209 * 15 - 16 * kTwipsPerCmExact) / 2, 0.001);
  EXPECT_NEAR(numbers[1], (605 * 15 - 8 * kTwipsPerCmExact) / 2, 0.001);
  EXPECT_GT(numbers[0], 0);
}

TEST_F(PrintScreen, PrintsWhatTheFormShows) {
  drawing.GralGrStr(form, "LANDSCAPE", 2);
  drawing.GralBox(2, 6, 4, 2, 0);
  drawing.GralPrintScreen();
  PictureCatcher sink;
  printer.list().replay(sink);
  ASSERT_EQ(sink.pictures.size(), 1U);
  EXPECT_EQ(sink.pictures[0].pixels, form.raster().pixels());
}

TEST_F(PrintScreen, FailureOfThePrinterReachesTheCaller) {
  drawing.GralGrStr(form, "LANDSCAPE", 1);
  printer.fails = true;
  try {
    drawing.GralPrintScreen();
    FAIL();
  } catch (const RuntimeError& error) {
    EXPECT_EQ(error.number(), 482);
  }
}

}  // namespace
}  // namespace vk
