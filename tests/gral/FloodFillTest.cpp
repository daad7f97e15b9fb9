#include "GralFixture.h"
#include "PictureCatcher.h"
#include "RasterForm.h"
#include "base/RuntimeError.h"

namespace vk {
namespace {

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
    drawing.GralFillColor(Colour::fromBgr(0x0000FF));
  }
  int count(std::uint32_t color) const {
    int pixels = 0;
    for (const std::uint32_t pixel : form.raster().pixels()) pixels += pixel == color;
    return pixels;
  }
  RecorderDevice printer{smallPage()};
  RasterForm form{1};
  GralCls drawing{printer};
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
  drawing.GralFill(2, 4, Colour::fromBgr(0x123456));
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
  drawing.GralFillColor(kBlack);
  drawing.GralFillStyle(kFillHorizontal);
  drawing.GralFill(5, 5, Colour::fromBgr(0x0000FF));
  EXPECT_EQ(count(kInk), 605 * 38);
  drawing.GralFillStyle(kFillTransparent);
  drawing.GralFill(5, 5, Colour::fromBgr(0x0000FF));
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
  RecorderDevice recorder(FormMetrics{{120, 405}, 1});
  drawing.GralGrStr(recorder, "LANDSCAPE", 2);
  recorder.forget();
  drawing.GralFillColor(Colour::fromBgr(0x030201));
  drawing.GralFillStyle(kFillCross);
  drawing.GralXMap(0, 16, 0, 160);
  drawing.GralFill(40, 4, Colour::fromBgr(0xFF8040));
  EXPECT_EQ(recorder.lines(),
            (std::vector<std::string>{"filling 010203 cross", "floodfill 151,151 px to 4080FF"}));
  DisplayList copy;
  recorder.list().replay(copy);
  EXPECT_EQ(copy.lines(), recorder.lines());
  EXPECT_TRUE(copy.needsPixels());
}

// ---- Print of the screen

/// A printer that writes down in which orientation a picture and the end of a document reach it.
class WatchedPrinter : public RecorderDevice {
 public:
  WatchedPrinter() : RecorderDevice(smallPage()) {}
  std::vector<std::string> calls;
  bool fails = false;

 private:
  void picture(const Picture& picture, const TwipPoint& corner) override {
    calls.push_back("picture in " + std::to_string(Orientation()));
    RecorderDevice::picture(picture, corner);
  }
  void endDocument() override {
    if (fails) throw RuntimeError(kPrinterError);
    calls.push_back("end in " + std::to_string(Orientation()));
    RecorderDevice::endDocument();
  }
};

class PrintScreen : public ::testing::Test {
 protected:
  WatchedPrinter printer;
  RasterForm form{1};
  GralCls drawing{printer};
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
