#include <limits>

#include "GralFixture.h"
#include "base/RuntimeError.h"
#include "doubles/Tolerances.h"

namespace vk {
namespace {

class Coordinates : public GralFixture {};

TEST_F(Coordinates, UsrAndLogCoincideBeforeAnyMapping) {
  EXPECT_EQ(drawing.xUsr2Log(3), 3);
  EXPECT_EQ(drawing.yUsr2Log(3), 3);
}

TEST_F(Coordinates, TopOfThePageIsZeroInScrAndBottomItsHeight) {
  EXPECT_EQ(drawing.yLog2Scr(drawing.YtLog), 0);
  EXPECT_EQ(drawing.yLog2Scr(drawing.YbLog), form.ScaleHeight());
  EXPECT_EQ(drawing.xLog2Scr(drawing.XlLog), 0);
  EXPECT_EQ(drawing.xLog2Scr(drawing.XrLog), form.ScaleWidth());
}

TEST_F(Coordinates, ReversedAxisIsMapped) {
  drawing.GralXMap(2, 20, 100, 0);
  EXPECT_NEAR(drawing.xUsr2Log(100), 2, 1E-5);
  EXPECT_NEAR(drawing.xUsr2Log(0), 20, 1E-5);
  EXPECT_GT(drawing.XlUsr, drawing.XrUsr);
  drawing.GralYMap(1, 5, 10, -10);
  EXPECT_NEAR(drawing.yUsr2Log(10), 1, 1E-5);
  EXPECT_NEAR(drawing.yUsr2Log(-10), 5, 1E-5);
  EXPECT_LT(drawing.YtUsr, drawing.YbUsr);
}

TEST_F(Coordinates, MappingGivesScaleAndEdges) {
  drawing.GralXMap(2, 10, 100, 500);
  EXPECT_EQ(drawing.xScaleU2L, 0.02F);
  EXPECT_NEAR(drawing.XlUsr, 0, 1E-4);
  EXPECT_NEAR(drawing.XrUsr, 800, 1E-4);
  drawing.GralYMap(0, 4, -1, 1);
  EXPECT_EQ(drawing.yScaleU2L, 2);
  EXPECT_EQ(drawing.YtUsr, 3);
  EXPECT_EQ(drawing.YbUsr, -1);
}

void expectMapFails(GralCls& drawing, double l1, double l2, double u1, double u2) {
  for (const auto map : {&GralCls::GralXMap, &GralCls::GralYMap}) {
    try {
      (drawing.*map)(l1, l2, u1, u2);
      ADD_FAILURE() << "no failure";
    } catch (const RuntimeError& error) {
      EXPECT_EQ(error.number(), 11);
    }
  }
}

TEST_F(Coordinates, EqualEndsFailToTheCallerAndLeaveTheMapping) {
  drawing.GralXMap(2, 10, 100, 500);
  drawing.GralYMap(0, 4, -1, 1);
  expectMapFails(drawing, 1, 5, 7, 7);
  expectMapFails(drawing, 3, 3, 0, 1);
  expectMapFails(drawing, 3, 3, 1, 1);
  EXPECT_EQ(drawing.xScaleU2L, 0.02F);
  EXPECT_NEAR(drawing.XrUsr, 800, 1E-4);
  EXPECT_EQ(drawing.yScaleU2L, 2);
  EXPECT_EQ(drawing.YtUsr, 3);
  EXPECT_EQ(drawing.YbUsr, -1);
}

TEST_F(Coordinates, NarrowRangesAreMappedInDoublePrecision) {
  drawing.GralXMap(2, 14, 1.7E9, 1.7E9 + 600);
  drawing.GralYMap(1, 7, 5.0004, 5);
  EXPECT_NEAR(drawing.xUsr2Log(1.7E9 + 150), 5, kSingles);
  EXPECT_NEAR(drawing.xLog2Usr(5), 1.7E9 + 150, kSingles);
  EXPECT_NEAR(drawing.yUsr2Log(5.0001), 5.5, kThroughScales);
  EXPECT_NEAR(drawing.yLog2Usr(5.5), 5.0001, kFewRoundings);
  EXPECT_EQ(drawing.XlUsr, static_cast<float>(1.7E9 - 100));
  EXPECT_EQ(drawing.xScaleU2L, .02F);
  EXPECT_EQ(drawing.YtUsr, static_cast<float>(5.0004 - 7 * .0004 / 6));
}

TEST_F(Coordinates, ARangeFromATenThousandthOfItsLargestValueStaysSingle) {
  for (const double from : {9999.0, -10000.0}) {
    drawing.GralXMap(2, 14, from, from + 1);
    const double XlLog = drawing.XlLog, XlUsr = drawing.XlUsr, xScaleU2L = drawing.xScaleU2L;
    EXPECT_EQ(drawing.xUsr2Log(from), XlLog + (from - XlUsr) * xScaleU2L);
    EXPECT_NE(drawing.xUsr2Log(from), 2);
  }
  drawing.GralXMap(2, 14, 9999.001, 10000);
  EXPECT_EQ(drawing.xUsr2Log(9999.001), 2);
}

TEST_F(Coordinates, RangesBeyondTheExponentsOfSinglesAreMapped) {
  drawing.GralXMap(2, 14, 0, 1.2E-43);
  drawing.GralYMap(1, 7, 0, 1E50);
  EXPECT_NEAR(drawing.xUsr2Log(6E-44), 8, kThroughScales);
  EXPECT_NEAR(drawing.yUsr2Log(5E49), 4, kThroughScales);
  EXPECT_EQ(drawing.xScaleU2L, std::numeric_limits<float>::max());
  EXPECT_EQ(drawing.yScaleU2L, 0);
}

TEST_F(Coordinates, AFieldThatIsWrittenBehindANarrowMappingCounts) {
  drawing.GralXMap(2, 14, 1.7E9, 1.7E9 + 600);
  drawing.XlUsr = 0;
  drawing.xScaleU2L = 2;
  EXPECT_EQ(drawing.xUsr2Log(3), 6);
  drawing.GralYMap(1, 7, 5, 5.0004);
  drawing.YtUsr = 5;
  EXPECT_EQ(drawing.yUsr2Log(5), drawing.YtLog);
  drawing.GralXMap(2, 14, 0, 6);
  EXPECT_EQ(drawing.xUsr2Log(3), 8);
}

TEST_F(Coordinates, ANewDrawingHasNoNarrowMapping) {
  drawing.GralXMap(0, 16, 0, 1E-40);
  drawing.GralGrStr(form, "LANDSCAPE", 2);
  EXPECT_EQ(drawing.xUsr2Log(3), 3);
}

/// A pair of conversions there and back.
struct Pair {
  const char* name;
  double (GralCls::*there)(double) const;
  double (GralCls::*back)(double) const;
};

TEST_F(Coordinates, RoundTripsKeepSinglePrecision) {
  drawing.GralXMap(2, 14, -3.7, 96.2);
  drawing.GralYMap(1, 7, 1000, -250);
  const Pair pairs[] = {{"xLog2Scr", &GralCls::xLog2Scr, &GralCls::xScr2Log},
                        {"xUsr2Log", &GralCls::xUsr2Log, &GralCls::xLog2Usr},
                        {"xUsr2Scr", &GralCls::xUsr2Scr, &GralCls::xScr2Usr},
                        {"yLog2Scr", &GralCls::yLog2Scr, &GralCls::yScr2Log},
                        {"yUsr2Log", &GralCls::yUsr2Log, &GralCls::yLog2Usr},
                        {"yUsr2Scr", &GralCls::yUsr2Scr, &GralCls::yScr2Usr}};
  for (const Pair& pair : pairs) {
    for (const double value : {-12.5, 0.0, 0.1, 3.0, 77.7, 1234.5}) {
      const double result = (drawing.*pair.back)((drawing.*pair.there)(value));
      EXPECT_NEAR(result, value, 1E-6 * (1 + std::abs(value))) << pair.name;
    }
  }
}

TEST_F(Coordinates, PixelRoundTripsStayWithinHalfAPixel) {
  drawing.GralXMap(2, 14, -3.7, 96.2);
  drawing.GralYMap(1, 7, 1000, -250);
  for (int p = 0; p <= 300; p += 30) {
    EXPECT_EQ(drawing.xUsr2Pixel(drawing.xPixel2Usr(p)), p);
    EXPECT_EQ(drawing.yUsr2Pixel(drawing.yPixel2Usr(p)), p);
  }
}

TEST_F(Coordinates, PixelToUsrIsSingle) {
  drawing.GralXMap(0, 16, 0, 1);
  const float x = drawing.xPixel2Usr(7);
  EXPECT_EQ(x, static_cast<float>(drawing.xScr2Usr(105)));
  EXPECT_NE(static_cast<double>(x), drawing.xScr2Usr(105));
}

TEST_F(Coordinates, PixelsRoundTiesToTheEvenOne) {
  EXPECT_EQ(drawing.xScr2Pixel(7.5), 0);
  EXPECT_EQ(drawing.xScr2Pixel(22.5), 2);
  EXPECT_EQ(drawing.xScr2Pixel(37.5), 2);
  EXPECT_EQ(drawing.xScr2Pixel(-22.5), -2);
  EXPECT_EQ(drawing.yScr2Pixel(7.5), 0);
  EXPECT_EQ(drawing.yScr2Pixel(22.5), 2);
  EXPECT_EQ(drawing.yScr2Pixel(22.6), 2);
  EXPECT_EQ(drawing.yScr2Pixel(23), 2);
  EXPECT_EQ(drawing.yScr2Pixel(37.6), 3);
}

TEST_F(Coordinates, PixelsHave32Bits) {
  EXPECT_EQ(drawing.xScr2Pixel(15.0 * 2147483647), 2147483647);
  try {
    drawing.xScr2Pixel(15.0 * 2147483648);
    FAIL();
  } catch (const RuntimeError& error) {
    EXPECT_EQ(error.number(), 6);
  }
}

TEST_F(Coordinates, PixelsAreThoseOfTheDevice) {
  RecorderDevice fine{FormMetrics{{0, 0}, 4}};
  drawing.GralGrStr(fine, "LANDSCAPE", 2);
  EXPECT_EQ(drawing.xScr2Pixel(15), 4);
  EXPECT_EQ(drawing.xUsr2Pixel(16), 605 * 4);
  EXPECT_EQ(drawing.yUsr2Pixel(0), 302 * 4);
  EXPECT_EQ(drawing.yUsr2Pixel(8), 0);
}

}  // namespace
}  // namespace vk
