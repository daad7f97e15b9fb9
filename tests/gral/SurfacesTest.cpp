#include <algorithm>
#include <cmath>
#include <map>

#include "DrawnSurfaces.h"
#include "RasterForm.h"
#include "gral/BoxProjection.h"
#include "gral/Shade.h"

namespace vk {
namespace {

TEST_F(Surfaces, WithoutShadesAndLevelsAreAMeshOfWires) {
  surface(drawing, gridOf(3, 2, [](int i, int j) { return 0.3 * i + 0.2 * j; }), {});
  const auto found = figures();
  ASSERT_EQ(found.size(), 2U);
  const BoxProjection box({8, 4, 30, 45, 4, 4, 3});
  const auto point = [&](int i, int j) {
    return pixel(box.corner + (i - 1) / 2.0 * box.xEdge + (j - 1) * box.yEdge + (0.3 * i + 0.2 * j) * box.ez);
  };
  for (int i = 1; i <= 2; ++i) {
    const auto& cell = found[static_cast<std::size_t>(i - 1)];
    EXPECT_FALSE(cell.fill);
    EXPECT_TRUE(cell.stroke);
    EXPECT_EQ(cell.points, (std::vector<PixelPoint>{point(i, 1), point(i + 1, 1), point(i + 1, 2),
                                                    point(i, 2), point(i, 1)}));
  }
}

TEST_F(Surfaces, AreDrawnRowByRow) {
  surface(drawing, flat(4, 3), {});
  const auto found = figures();
  ASSERT_EQ(found.size(), 6U);
  const BoxProjection box({8, 4, 30, 45, 4, 4, 3});
  std::size_t n = 0;
  for (int j = 0; j < 2; ++j) {
    for (int i = 0; i < 3; ++i, ++n) {
      EXPECT_EQ(found[n].points[0], pixel(box.corner + i / 3.0 * box.xEdge + j / 2.0 * box.yEdge)) << n;
    }
  }
}

TEST_F(Surfaces, AreShownAfterEvery200CellsAndAtTheEnd) {
  const auto refreshesOf = [&](int nx, int ny) {
    surface(drawing, flat(nx, ny), {});
    int refreshes = 0;
    std::string last;
    for (const std::string& line : drawn()) {
      refreshes += line == "refresh";
      last = line;
    }
    EXPECT_EQ(last, "refresh");
    return refreshes;
  };
  EXPECT_EQ(refreshesOf(3, 3), 1);
  EXPECT_EQ(refreshesOf(21, 10), 1);  // 180 cells
  EXPECT_EQ(refreshesOf(21, 11), 2);  // 200
  EXPECT_EQ(refreshesOf(21, 41), 5);  // 800
}

TEST_F(Surfaces, AreNotShownOnAPrinter) {
  openPrinter();
  surface(drawing, flat(21, 21), {});
  const std::vector<std::string> lines = drawnOn(printer);
  EXPECT_EQ(lines.size(), 400U);  // the cells
  EXPECT_EQ(std::ranges::count(lines, "refresh"), 0);
}

TEST_F(Surfaces, PutFillStyleAndColourBack) {
  drawing.GralFillStyle(kFillCross);
  drawing.GralFillColor(Colour::fromBgr(0x010203));
  for (const bool color : {false, true}) {
    surface(drawing, flat(3, 3), {.gray = true, .color = color}, levelsOf({1}), colorsOf(2));
    EXPECT_EQ(form.FillStyle(), kFillCross);
    EXPECT_EQ(form.FillColor(), Colour::fromBgr(0x010203));
  }
  // also when they fail on their way
  EXPECT_EQ(failureOf([&] { surface(drawing, flat(3, 3), {}, levelsOf({-1, 2}), Array2<float>(3, 2)); }), 9);
  EXPECT_EQ(form.FillStyle(), kFillCross);
  EXPECT_EQ(form.FillColor(), Colour::fromBgr(0x010203));
}

TEST_F(Surfaces, OfAFlatFloorHaveTheSameGrayAtEveryPixelRatio) {
  // what is seen of the floor is cos 45 * cos 60 of it, whose square is 0.125
  for (const int ratio : {1, 2, 4, 15}) {
    RecorderDevice device(FormMetrics{{0, 0}, ratio});
    GralCls onDevice(printer);
    onDevice.GralGrStr(device, "LANDSCAPE", 2);
    device.forget();
    surface(onDevice, flat(4, 4), {.gray = true});
    FigureCatcher catcher;
    device.list().replay(catcher);
    int fills = 0;
    for (const auto& figure : catcher.figures) {
      if (!figure.fill) continue;
      ++fills;
      const int gray = figure.color.red();
      EXPECT_EQ(figure.color, Colour::fromChannels(gray, gray, gray));
      // A cell is some 50 pixels wide at ratio 1, so that an area is known to a few percent.
      EXPECT_NEAR(gray, 152, ratio == 1 ? 3 : 1.5) << ratio;
    }
    EXPECT_EQ(fills, 18);
  }
}

TEST_F(Surfaces, SeenFlatOnAreWhiteAndEdgeOnBlack) {
  RecorderDevice fine(FormMetrics{{0, 0}, 15});
  GralCls onFine(printer);
  onFine.GralGrStr(fine, "LANDSCAPE", 2);
  const auto graysOf = [&](const Array2<float>& z, const Look& look) {
    fine.forget();
    surface(onFine, z, look);
    FigureCatcher catcher;
    fine.list().replay(catcher);
    std::vector<int> grays;
    for (const auto& figure : catcher.figures) {
      if (figure.fill) grays.push_back(figure.color.red());
    }
    EXPECT_EQ(grays.size(), 8U);
    return grays;
  };
  // from theta 0 and phi 0 the floor's edges are the axes of the page
  for (const int gray : graysOf(flat(3, 3), {.theta = 0, .phi = 0, .gray = true})) EXPECT_GE(gray, 254);
  // at theta 45 both edges of the floor fall on one line
  for (const int gray : graysOf(flat(3, 3), {.theta = 45, .phi = 45, .gray = true})) EXPECT_LE(gray, 20);
}

TEST_F(Surfaces, ShadesFollowTheSlopesOfEachHalf) {
  // One cell of 4 x 3 with heights A 0, B 1, C 0.5, D 2.5.
  RecorderDevice fine(FormMetrics{{0, 0}, 15});
  GralCls onFine(printer);
  onFine.GralGrStr(fine, "LANDSCAPE", 2);
  fine.forget();
  const double zA = 0, zB = 1, zC = 0.5, zD = 2.5;
  Array2<float> z(2, 2);
  z(1, 1) = static_cast<float>(zA);
  z(1, 2) = static_cast<float>(zB);
  z(2, 1) = static_cast<float>(zC);
  z(2, 2) = static_cast<float>(zD);
  surface(onFine, z, {.theta = 70, .phi = 40, .Vx = 4, .Vy = 3, .gray = true});
  FigureCatcher catcher;
  fine.list().replay(catcher);
  ASSERT_EQ(catcher.figures.size(), 3U);
  const double degree = 3.1415926 / 180;
  const double st = std::sin(70 * degree), ct = std::cos(70 * degree);
  const double sp = std::sin(40 * degree), cp = std::cos(40 * degree);
  // In Usr, seen from A: C is one x edge away, B one y edge, D both; each raised by its height.
  const double Cx = 4 * st, Cy = 4 * ct * cp + zC * sp, Bx = 3 * ct, By = 3 * cp * st + zB * sp;
  const double Dx = 4 * st + 3 * ct, Dy = 4 * ct * cp + 3 * cp * st + zD * sp;
  const double P1 = std::pow(Cx * By - Bx * Cy, 2);
  const double P2 = std::pow((Cx - Bx) * (Dy - By) - (Dx - Bx) * (Cy - By), 2);
  const double N1 = 12 * 12 + std::pow(4 * (zB - zA), 2) + std::pow(3 * (zB - zC), 2);
  const double N2 = 12 * 12 + std::pow(4 * (zD - zA), 2) + std::pow(3 * (zD - zC), 2);
  const double gray1 = 255 * std::pow(std::min(P1, N1) / N1, 0.25);
  const double gray2 = 255 * std::pow(std::min(P2, N2) / N2, 0.25);
  EXPECT_GT(std::abs(gray1 - gray2), 2);
  EXPECT_NEAR(catcher.figures[0].color.red(), gray1, 0.6);
  EXPECT_NEAR(catcher.figures[1].color.red(), gray2, 0.6);
  // the triangles A, C, B and B, C, D, closed
  const auto& outline = catcher.figures[2].points;
  EXPECT_EQ(catcher.figures[0].points,
            (std::vector<PixelPoint>{outline[0], outline[1], outline[3], outline[0]}));
  EXPECT_EQ(catcher.figures[1].points,
            (std::vector<PixelPoint>{outline[3], outline[1], outline[2], outline[3]}));
}

TEST_F(Surfaces, ShadesNeverExceedFlatOn) {
  // A crease whose far half overlaps on the page: its seen area is above what the slopes allow.
  surface(drawing, gridOf(2, 2, [](int i, int j) { return i == 2 && j == 2   ? 0
                                                          : i == 1 && j == 1 ? 0
                                                                             : 3; }),
          {.theta = 0, .phi = 90, .gray = true});
  for (const auto& figure : figures()) EXPECT_LE(figure.color.red(), 255);
  // gray 255 is white, and not beyond
  surface(drawing, flat(2, 2), {.theta = 0, .phi = 0, .gray = true});
  EXPECT_NEAR(figures()[0].color.red(), 255, 1);
}

TEST_F(Surfaces, ShadesHaveHueAndSaturationOfTheSurface) {
  surface(drawing, flat(2, 2), {.gray = true});
  const int gray = figures()[0].color.red();
  surface(drawing, flat(2, 2), {.gray = true, .color = true});
  const Colour color = figures()[0].color;
  EXPECT_NEAR(color.red(), HsbToRgb(0.6F, 0.5F, gray / 512.0).red(), 1);
  EXPECT_NEAR(color.blue(), HsbToRgb(0.6F, 0.5F, gray / 512.0).blue(), 1);
  EXPECT_GT(color.blue(), color.red());
}

TEST_F(Surfaces, WithMoreColoursThanLevelsAreBanded) {
  surface(drawing, gridOf(2, 2, [](int i, int j) { return i + j - 2; }), {}, levelsOf({0.5, 1.5}),
          colorsOf(3));
  const auto found = figures();
  // (A, C, B) has one level between its corners and (B, C, D) the other, and the outline comes last
  ASSERT_EQ(found.size(), 5U);
  EXPECT_EQ(found[0].color, HsbToRgb(0.1F, 1, 0.4F));
  EXPECT_EQ(found[1].color, HsbToRgb(0.2F, 1, 0.4F));
  EXPECT_EQ(found[2].color, HsbToRgb(0.2F, 1, 0.4F));
  EXPECT_EQ(found[3].color, HsbToRgb(0.3F, 1, 0.4F));
  for (std::size_t n = 0; n < 4; ++n) EXPECT_TRUE(found[n].fill && !found[n].stroke);
  EXPECT_TRUE(found[4].stroke);
  // the bands of a shaded surface are as bright as the mean of both halves
  surface(drawing, flat(2, 2), {.gray = true}, levelsOf({0.5}), colorsOf(2));
  const auto shaded = figures();
  ASSERT_EQ(shaded.size(), 3U);
  EXPECT_NEAR(shaded[0].color.red(), HsbToRgb(0.1F, 1, 152 / 512.0).red(), 3);
  EXPECT_EQ(shaded[0].color, shaded[1].color);
}

TEST_F(Surfaces, WithAsManyColoursAsLevelsHaveLevelLines) {
  const auto z = gridOf(2, 2, [](int i, int j) { return i + j - 2; });
  drawing.GralColor(Colour::fromBgr(0x00FFFF));
  surface(drawing, z, {}, levelsOf({0.5, 1.5}), colorsOf(2));
  LineCatcher catcher;
  form.list().replay(catcher);
  ASSERT_EQ(catcher.caught.size(), 2U);
  EXPECT_EQ(catcher.caught[0].color, HsbToRgb(0.1F, 1, 0.4F));
  EXPECT_EQ(catcher.caught[1].color, HsbToRgb(0.2F, 1, 0.4F));
  EXPECT_EQ(form.ForeColor(), Colour::fromBgr(0x00FFFF));
  // level 0.5 crosses A-C and A-B in their middles
  const BoxProjection box({8, 4, 30, 45, 4, 4, 3});
  const UsrPoint onX = box.corner + 0.5 * box.xEdge + 0.5 * box.ez;
  const UsrPoint onY = box.corner + 0.5 * box.yEdge + 0.5 * box.ez;
  std::vector<double> found{catcher.caught[0].x1, catcher.caught[0].x2};
  std::vector<double> expected{drawing.xUsr2Scr(onX.x), drawing.xUsr2Scr(onY.x)};
  std::sort(found.begin(), found.end());
  std::sort(expected.begin(), expected.end());
  EXPECT_NEAR(found[0], expected[0], 0.01);
  EXPECT_NEAR(found[1], expected[1], 0.01);
  const auto plain = figures();
  ASSERT_EQ(plain.size(), 1U);  // no filling
  EXPECT_FALSE(plain[0].fill);
  // shaded, the halves are filled under the lines
  surface(drawing, z, {.gray = true}, levelsOf({0.5, 1.5}), colorsOf(2));
  EXPECT_EQ(figures().size(), 3U);
}

TEST_F(Surfaces, WithFewerColoursThanLevelsHaveNeither) {
  surface(drawing, gridOf(2, 2, [](int i, int j) { return i + j; }), {}, levelsOf({2.5, 3.5}), colorsOf(1));
  EXPECT_EQ(drawn().size(), 2U);  // outline and refresh
}

TEST_F(Surfaces, WithoutLevelsDoNoLevelWork) {
  // an array of levels that could not be read
  drawing.Surf3D(8, 4, 30, 45, 4, 4, 3, flat(3, 3), 3, 3, true, false, {}, {}, 0, {}, 0);
  const auto found = figures();
  EXPECT_EQ(found.size(), 12U);
  drawing.Surf3D(8, 4, 30, 45, 4, 4, 3, flat(3, 3), 3, 3, true, false, {}, {}, 0, colorsOf(3), 3);
  EXPECT_EQ(figures().size(), 12U);
}

TEST_F(Surfaces, SeenFromTheHorizonAreFlat) {
  surface(drawing, gridOf(3, 3, [](int i, int j) { return i * j; }), {.phi = 0});
  const auto high = figures();
  surface(drawing, flat(3, 3), {.phi = 0});
  const auto low = figures();
  ASSERT_EQ(high.size(), low.size());
  for (std::size_t n = 0; n < high.size(); ++n) EXPECT_EQ(high[n].points, low[n].points);
}

TEST_F(Surfaces, OfOneGridPointFail) {
  EXPECT_EQ(failureOf([&] { surface(drawing, flat(1, 3), {}); }), 11);
  EXPECT_EQ(failureOf([&] { surface(drawing, flat(3, 1), {}); }), 11);
  EXPECT_TRUE(drawn().empty());
}

TEST_F(Surfaces, BeyondTheirArraysFail) {
  const auto z = flat(3, 3);
  EXPECT_EQ(
      failureOf([&] { drawing.Surf3D(8, 4, 30, 45, 4, 4, 3, z, 4, 3, false, false, {}, {}, 0, {}, 0); }), 9);
  EXPECT_EQ(failureOf([&] { drawing.Surf3D(8, 4, 30, 45, 4, 4, 3, z, 3, 3, false, true, {}, {}, 0, {}, 0); }),
            9);
}

TEST_F(Surfaces, BandOfAPlaneHasTheExactArea) {
  // From above the floor is a rectangle, and heights do not move it: theta 0, phi 0 and no outlines.
  RasterForm pixels(2);
  GralCls onPixels(printer);
  onPixels.GralGrStr(pixels, "LANDSCAPE", 2);
  pixels.setDrawStyle(kDrawTransparent);
  constexpr int kNx = 23, kNy = 17;
  // height 0..10 over a floor of 6 x 5 cm, slanted to both sides
  const auto plane = [](double x, double y) { return 1.1 * x + 0.68 * y; };
  const auto z = gridOf(
      kNx, kNy, [&](int i, int j) { return plane(6.0 * (i - 1) / (kNx - 1), 5.0 * (j - 1) / (kNy - 1)); });
  const double low = 3.3, high = 6.1;
  surface(onPixels, z, {.theta = 0, .phi = 0, .Vx = 6, .Vy = 5}, levelsOf({low, high}), colorsOf(3));
  std::map<std::uint32_t, int> counts;
  for (const std::uint32_t pixel : pixels.raster().pixels()) ++counts[pixel];
  // The part of the rectangle under a level, by integrating over y the x that is reached.
  const auto under = [&](double level) {
    double area = 0;
    constexpr int kSteps = 100000;
    for (int n = 0; n < kSteps; ++n) {
      const double y = 5 * (n + 0.5) / kSteps;
      area += std::clamp((level - 0.68 * y) / 1.1, 0.0, 6.0) * 5 / kSteps;
    }
    return area;
  };
  const double pixelsPerCm = 2 * kTwipsPerLogX / 15;
  const double expected[] = {under(low), under(high) - under(low), 30 - under(high)};
  for (int c = 1; c <= 3; ++c) {
    const double row = 6 * pixelsPerCm;
    EXPECT_NEAR(counts[Raster::pixelOf(HsbToRgb(static_cast<float>(c) / 10, 1, 0.4F))],
                expected[c - 1] * pixelsPerCm * pixelsPerCm, row)
        << c;
  }
  EXPECT_EQ(counts.size(), 4U);
}

}  // namespace
}  // namespace vk
