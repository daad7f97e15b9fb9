#include "gral/BandTriangle.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <random>

#include "RasterForm.h"
#include "SurfaceFixture.h"
#include "gral/Shade.h"

namespace vk {
namespace {

/// Twice the signed area.
double turn(const PixelPlace& a, const PixelPlace& b, const PixelPlace& c) {
  return (b.x - a.x) * (c.y - a.y) - (c.x - a.x) * (b.y - a.y);
}

double areaOf(std::span<const PixelPlace> points) {
  double twice = 0;
  for (std::size_t i = 1; i + 1 < points.size(); ++i) twice += turn(points[0], points[i], points[i + 1]);
  return twice / 2;
}

std::vector<LevelBand> bandsOf(const LevelTriangle<unit::Pixel>& triangle, const Array<float>& levels) {
  std::vector<LevelBand> bands;
  forEachBand(triangle, levels, [&](const LevelBand& band) { bands.push_back(band); });
  return bands;
}

/// The colours 1..n: hue c/10, saturation 1, brightness 0.4.
Array2<float> colorsOf(int n) {
  Array2<float> hsb(n, 3);
  for (int c = 1; c <= n; ++c) {
    hsb(c, 1) = static_cast<float>(c) / 10;
    hsb(c, 2) = 1;
    hsb(c, 3) = 0.4F;
  }
  return hsb;
}

std::string colorText(Colour color) {
  LineWriter writer;
  writer.filledBox({0, 0}, {0, 0}, color);
  return writer.lines[0].substr(writer.lines[0].size() - 6);
}

class Bands : public GralFixture {
 protected:
  template <class Unit = unit::Pixel>
  LevelCorner<Unit> at(double x, double y, double z) const {
    return {{x, y}, z, LevelIndex(z, levels, levels.upper())};
  }
  Array<float> levels;
};

TEST_F(Bands, OfATriangleWithoutALevelAreTheTriangle) {
  levels = levelsOf({1, 2});
  form.setForeColor(Colour::fromBgr(0x123456));
  BandFillTriangle(form, at(10, 10, 1.2), at(50, 10, 1.7), at(10, 40, 1), levels, {colorsOf(3), false, 0});
  EXPECT_EQ(form.FillStyle(), kFillSolid);
  EXPECT_EQ(allDrawn(), (std::vector<std::string>{"filling " + colorText(HsbToRgb(0.2F, 1, 0.4F)) + " solid",
                                                  "fill 10,40 50,10 10,10 10,40 px"}));
}

TEST_F(Bands, HaveTheColourAboveTheirIndex) {
  levels = levelsOf({1, 2, 3});
  BandFillTriangle(form, at(0, 0, 0.5), at(100, 0, 2), at(0, 100, 3.5), levels, {colorsOf(4), false, 0});
  const std::vector<std::string> lines = allDrawn();
  ASSERT_EQ(lines.size(), 8U);
  for (int c = 1; c <= 4; ++c) {
    EXPECT_EQ(lines[static_cast<std::size_t>(2 * c - 2)],
              "filling " + colorText(HsbToRgb(0.1F * static_cast<float>(c), 1, 0.4F)) + " solid");
  }
  // The segment of level 1 is (0, 16.7)-(33.3, 0), of level 2 (0, 50)-(100, 0), of level 3 (0, 83.3)-(33.3, 66.7).
  EXPECT_EQ(lines[1], "fill 0,0 0,17 33,0 0,0 px");
  EXPECT_EQ(lines[3], "fill 33,0 0,17 0,50 100,0 33,0 px");
  EXPECT_EQ(lines[5], "fill 100,0 0,50 0,83 33,67 100,0 100,0 px");
  EXPECT_EQ(lines[7], "fill 33,67 0,83 0,100 33,67 px");
}

TEST_F(Bands, ContainTheMiddleCornerWhereItLies) {
  levels = levelsOf({1, 2});
  BandFillTriangle(form, at(0, 0, 0), at(100, 0, 1.5), at(0, 100, 4), levels, {colorsOf(3), false, 0});
  EXPECT_EQ(drawn(),
            (std::vector<std::string>{"fill 0,0 0,25 67,0 0,0 px", "fill 67,0 0,25 0,50 80,20 100,0 67,0 px",
                                      "fill 80,20 0,50 0,100 80,20 px"}));
}

TEST_F(Bands, UnderAShadeAreAsBrightAsTheShade) {
  levels = levelsOf({1});
  BandFillTriangle(form, at(0, 0, 0), at(100, 0, 0), at(0, 100, 0), levels, {colorsOf(2), true, 255});
  EXPECT_EQ(allDrawn()[0], "filling " + colorText(HsbToRgb(0.1F, 1, 255.0 / 512)) + " solid");
  BandFillTriangle(form, at(0, 0, 0), at(100, 0, 0), at(0, 100, 0), levels, {colorsOf(2), true, 0});
  EXPECT_EQ(allDrawn()[0], "filling 000000 solid");
}

TEST_F(Bands, WithoutAColourFail) {
  levels = levelsOf({1, 2});
  EXPECT_EQ(failureOf([&] {
              BandFillTriangle(form, at(0, 0, 0), at(9, 0, 0), at(0, 9, 3), levels, {colorsOf(2), false, 0});
            }),
            9);
}

/// A triangle with its corners from the lowest to the highest and back, and what its bands are compared with.
struct MeasuredTriangle {
  explicit MeasuredTriangle(const LevelTriangle<unit::Pixel>& t)
      : triangle(t), corners{t.bottom.place, t.top.place, t.middle.place} {}

  double area() const { return areaOf(corners); }
  double tolerance() const { return 1E-9 * std::abs(area()) + 1E-6; }
  double heightAt(const PixelPlace& p) const {
    return (triangle.bottom.z * turn(corners[1], corners[2], p) +
            triangle.top.z * turn(corners[2], corners[0], p) +
            triangle.middle.z * turn(corners[0], corners[1], p)) /
           (2 * area());
  }

  LevelTriangle<unit::Pixel> triangle;
  std::array<PixelPlace, 3> corners;
};

/// A band runs round as the triangle does and is convex, lies in it, and between its two levels.
void expectInside(const LevelBand& band, const MeasuredTriangle& whole, const Array<float>& levels) {
  const auto points = band.points();
  const double way = whole.area() > 0 ? 1 : -1;
  ASSERT_GE(areaOf(points) * way, -whole.tolerance());
  for (std::size_t i = 0; i < points.size(); ++i) {
    const PixelPlace& p = points[i];
    const double bend = turn(p, points[(i + 1) % points.size()], points[(i + 2) % points.size()]);
    ASSERT_GE(bend * way, -whole.tolerance());
    for (std::size_t side = 0; side < 3; ++side) {
      ASSERT_GE(turn(whole.corners[side], whole.corners[(side + 1) % 3], p) * way, -whole.tolerance());
    }
    if (std::abs(whole.area()) < 10) continue;
    const double low = band.index > 0 ? levels[band.index] : -11,
                 high = band.index < levels.upper() ? levels[band.index + 1] : 11;
    ASSERT_GE(whole.heightAt(p), low - 1E-6);
    ASSERT_LE(whole.heightAt(p), high + 1E-6);
  }
}

/// A band begins with the segment that the one below it ended with.
void expectJoined(const LevelBand& band, const LevelBand& below, bool belowIsFirst) {
  const auto points = band.points();
  const auto lower = below.points();
  const std::size_t p = belowIsFirst ? 1 : 2;
  ASSERT_EQ(points[1].x, lower[p].x);
  ASSERT_EQ(points[1].y, lower[p].y);
  ASSERT_EQ(points[0].x, lower[p + 1].x);
  ASSERT_EQ(points[0].y, lower[p + 1].y);
}

TEST_F(Bands, OfAnyTriangleAreTheTriangleWithoutGapsOrOverlaps) {
  std::mt19937 random(41);
  std::uniform_real_distribution<double> place(-1000, 1000), height(-10, 10);
  std::uniform_int_distribution<int> count(0, 12), choice(0, 9);
  for (int trial = 0; trial < 10000; ++trial) {
    SCOPED_TRACE(trial);
    const int nl = count(random);
    std::vector<float> values;
    for (int k = 0; k < nl; ++k) values.push_back(static_cast<float>(height(random)));
    std::sort(values.begin(), values.end());
    levels = Array<float>(nl);
    for (int k = 1; k <= nl; ++k) levels[k] = values[static_cast<std::size_t>(k - 1)];
    // now and then a corner stands on a level, or at the height of another
    const auto z = [&](double other) {
      const int kind = choice(random);
      if (kind == 0 && nl > 0) return static_cast<double>(levels[1 + trial % nl]);
      return kind == 1 ? other : height(random);
    };
    const LevelCorner<unit::Pixel> a = at(place(random), place(random), z(0));
    const LevelCorner<unit::Pixel> b = at(place(random), place(random), z(a.z));
    const LevelCorner<unit::Pixel> c = at(place(random), place(random), z(b.z));
    const MeasuredTriangle whole(LevelTriangle<unit::Pixel>::of(a, b, c));

    const std::vector<LevelBand> bands = bandsOf(whole.triangle, levels);
    ASSERT_EQ(static_cast<int>(bands.size()), whole.triangle.top.k - whole.triangle.bottom.k + 1);
    double sum = 0;
    for (std::size_t i = 0; i < bands.size(); ++i) {
      ASSERT_EQ(bands[i].index, whole.triangle.bottom.k + static_cast<int>(i));
      ASSERT_NO_FATAL_FAILURE(expectInside(bands[i], whole, levels));
      if (i > 0) {
        ASSERT_NO_FATAL_FAILURE(expectJoined(bands[i], bands[i - 1], i == 1));
      }
      sum += areaOf(bands[i].points());
    }
    // Inside the triangle, without overlap as their levels differ, and of its area: they are the triangle.
    ASSERT_NEAR(sum, whole.area(), whole.tolerance());
  }
}

class BandLines : public Bands {};

TEST_F(BandLines, AreLevelSegmentsInTheColoursOfTheirLevels) {
  levels = levelsOf({1, 2});
  drawing.GralColor(Colour::fromBgr(0x00FFFF));
  BandLinesTriangle(drawing, at<unit::Usr>(0, 0, 0.5), at<unit::Usr>(4, 0, 1.5), at<unit::Usr>(0, 4, 2.5),
                    levels, {colorsOf(2), false, 0});
  LineCatcher catcher;
  form.list().replay(catcher);
  ASSERT_EQ(catcher.caught.size(), 2U);
  EXPECT_EQ(catcher.caught[0].color, HsbToRgb(0.1F, 1, 0.4F));
  EXPECT_EQ(catcher.caught[1].color, HsbToRgb(0.2F, 1, 0.4F));
  // level 1: (0, 1)-(2, 0), level 2: (0, 3)-(2, 2), in cm from the bottom left corner
  EXPECT_NEAR(catcher.caught[0].x2, 2 * kTwipsPerLogX, 0.01);
  EXPECT_NEAR(catcher.caught[0].y1, 7 * kTwipsPerLogY, 0.01);
  EXPECT_NEAR(catcher.caught[1].x2, 2 * kTwipsPerLogX, 0.01);
  EXPECT_NEAR(catcher.caught[1].y1, 5 * kTwipsPerLogY, 0.01);
  EXPECT_NEAR(catcher.caught[1].y2, 6 * kTwipsPerLogY, 0.01);
  EXPECT_EQ(form.ForeColor(), Colour::fromBgr(0x00FFFF));
}

TEST_F(BandLines, UnderAShadeAreAsBrightAsTheShade) {
  levels = levelsOf({1});
  BandLinesTriangle(drawing, at<unit::Usr>(0, 0, 0.5), at<unit::Usr>(4, 0, 1.5), at<unit::Usr>(0, 4, 2.5),
                    levels, {colorsOf(1), true, 128});
  EXPECT_EQ(allDrawn()[0], "pen " + colorText(HsbToRgb(0.1F, 1, 0.25)) + " width 1 solid");
}

}  // namespace
}  // namespace vk
