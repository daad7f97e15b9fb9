#include <algorithm>
#include <cmath>
#include <map>
#include <random>

#include "SurfaceFixture.h"
#include "gral/ContourTriangle.h"

namespace vk {
namespace {

using Corner = LevelCorner<unit::Usr>;
using Triangle = LevelTriangle<unit::Usr>;

// ---- Level indices

TEST(LevelIndices, CountTheLevelsAtOrBelowAValue) {
  const Array<float> levels = levelsOf({1, 2, 4});
  EXPECT_EQ(LevelIndex(0.99, levels, 3), 0);
  EXPECT_EQ(LevelIndex(1, levels, 3), 1);
  EXPECT_EQ(LevelIndex(1.5, levels, 3), 1);
  EXPECT_EQ(LevelIndex(2, levels, 3), 2);
  EXPECT_EQ(LevelIndex(3.99, levels, 3), 2);
  EXPECT_EQ(LevelIndex(4, levels, 3), 3);
  EXPECT_EQ(LevelIndex(100, levels, 3), 3);
}

TEST(LevelIndices, AreZeroWithoutLevels) {
  EXPECT_EQ(LevelIndex(5, levelsOf({1, 2}), 0), 0);
  EXPECT_EQ(LevelIndex(5, Array<float>(), 0), 0);
}

TEST(LevelIndices, StopAtTheFirstLevelAboveTheValue) {
  EXPECT_EQ(LevelIndex(3, levelsOf({1, 5, 2}), 3), 1);
  EXPECT_EQ(LevelIndex(0, levelsOf({1, -1, -2}), 3), 0);
}

TEST(LevelIndices, OfAnArrayThatIsTooShortFail) {
  EXPECT_EQ(failureOf([] { LevelIndex(5, levelsOf({1, 2}), 3); }), 9);
}

// ---- Triangles

Corner corner(double z) {
  return {{0, 0}, z, 0};
}

TEST(LevelTriangles, AreSortedByHeightFromAnyOrder) {
  int orders[3] = {1, 2, 3};
  do {
    const Triangle t = Triangle::of(corner(orders[0]), corner(orders[1]), corner(orders[2]));
    EXPECT_EQ(t.bottom.z, 1);
    EXPECT_EQ(t.middle.z, 2);
    EXPECT_EQ(t.top.z, 3);
  } while (std::next_permutation(orders, orders + 3));
}

TEST(LevelTriangles, EqualCornersHaveTheirOrder) {
  const Corner a{{1, 0}, 5, 0}, b{{2, 0}, 5, 0}, c{{3, 0}, 5, 0}, low{{4, 0}, 1, 0}, high{{5, 0}, 9, 0};
  const auto order = [](const Triangle& t) {
    return std::array{t.bottom.place.x, t.middle.place.x, t.top.place.x};
  };
  EXPECT_EQ(order(Triangle::of(a, b, c)), (std::array{2.0, 1.0, 3.0}));
  EXPECT_EQ(order(Triangle::of(a, b, low)), (std::array{4.0, 2.0, 1.0}));
  EXPECT_EQ(order(Triangle::of(a, b, high)), (std::array{2.0, 1.0, 5.0}));
  EXPECT_EQ(order(Triangle::of(low, b, c)), (std::array{4.0, 2.0, 3.0}));
  EXPECT_EQ(order(Triangle::of(high, b, c)), (std::array{2.0, 3.0, 5.0}));
}

/// A drawing whose Usr units are 15 twips, a pixel, from the top left corner.
class ContourTriangles : public GralFixture {
 protected:
  void SetUp() override {
    GralFixture::SetUp();
    drawing.GralXMap(0, 16, 0, 605);
    drawing.GralYMap(0, 8, 302, 0);
  }
  Corner at(double x, double y, double z) const { return {{x, y}, z, LevelIndex(z, levels, levels.upper())}; }
  std::vector<LineCatcher::Line> segments(const Corner& a, const Corner& b, const Corner& c) {
    Array<Colour> colors(levels.upper());
    for (int k = 1; k <= levels.upper(); ++k) colors[k] = Colour::fromBgr(100 * k);
    ContourTriangle(drawing, a, b, c, levels, colors);
    return lines();
  }
  std::vector<LineCatcher::Line> lines() {
    LineCatcher catcher;
    form.list().replay(catcher);
    form.forget();
    for (LineCatcher::Line& line : catcher.caught) {
      line.x1 /= 15;
      line.y1 /= 15;
      line.x2 /= 15;
      line.y2 /= 15;
    }
    return catcher.caught;
  }
  static void expectLine(const LineCatcher::Line& line, double x1, double y1, double x2, double y2) {
    EXPECT_NEAR(line.x1, x1, 0.001);
    EXPECT_NEAR(line.y1, y1, 0.001);
    EXPECT_NEAR(line.x2, x2, 0.001);
    EXPECT_NEAR(line.y2, y2, 0.001);
  }
  Array<float> levels;
};

TEST_F(ContourTriangles, HaveASegmentForEachLevelBetweenTheirCorners) {
  levels = levelsOf({0, 1, 2, 3, 4});
  // bottom (0,0) at 0.5, middle (100,0) at 2.5, top (0,100) at 4.5
  const auto found = segments(at(100, 0, 2.5), at(0, 100, 4.5), at(0, 0, 0.5));
  ASSERT_EQ(found.size(), 4U);
  expectLine(found[0], 0, 12.5, 25, 0);
  expectLine(found[1], 0, 37.5, 75, 0);
  expectLine(found[2], 0, 62.5, 75, 25);
  expectLine(found[3], 0, 87.5, 25, 75);
  for (std::size_t n = 0; n < found.size(); ++n)
    EXPECT_EQ(found[n].color, Colour::fromBgr(100 * (static_cast<int>(n) + 2)));
}

TEST_F(ContourTriangles, PutTheColourOfTheDeviceBack) {
  levels = levelsOf({1});
  drawing.GralColor(Colour::fromBgr(0x123456));
  segments(at(0, 0, 0), at(100, 0, 0), at(0, 100, 2));
  EXPECT_EQ(form.ForeColor(), Colour::fromBgr(0x123456));
}

TEST_F(ContourTriangles, FlatOnesAndThoseBetweenTwoLevelsHaveNone) {
  levels = levelsOf({1, 2});
  EXPECT_TRUE(segments(at(0, 0, 1), at(100, 0, 1), at(0, 100, 1)).empty());
  EXPECT_TRUE(segments(at(0, 0, 1), at(100, 0, 1.5), at(0, 100, 1.9)).empty());
  EXPECT_TRUE(segments(at(0, 0, -5), at(100, 0, 0), at(0, 100, 0.9)).empty());
  EXPECT_TRUE(segments(at(0, 0, 2), at(100, 0, 7), at(0, 100, 3)).empty());
}

TEST_F(ContourTriangles, LevelThroughTheMiddleCornerBeginsThere) {
  levels = levelsOf({2});
  const auto found = segments(at(0, 0, 1), at(100, 0, 2), at(0, 100, 3));
  ASSERT_EQ(found.size(), 1U);
  expectLine(found[0], 0, 50, 100, 0);
}

TEST_F(ContourTriangles, LevelThroughTheTopIsASpotThereAndThroughTheBottomNothing) {
  levels = levelsOf({3});
  const auto found = segments(at(0, 0, 1), at(100, 0, 2), at(0, 100, 3));
  ASSERT_EQ(found.size(), 1U);
  expectLine(found[0], 0, 100, 0, 100);
  EXPECT_TRUE(segments(at(0, 0, 3), at(100, 0, 4), at(0, 100, 5)).empty());
}

TEST_F(ContourTriangles, LevelAlongAnEdgeIsDrawnFromTheTriangleBelowIt) {
  levels = levelsOf({2});
  const auto below = segments(at(0, 0, 1), at(100, 0, 2), at(0, 100, 2));
  ASSERT_EQ(below.size(), 1U);
  expectLine(below[0], 0, 100, 100, 0);
  EXPECT_TRUE(segments(at(100, 100, 3), at(100, 0, 2), at(0, 100, 2)).empty());
}

TEST_F(ContourTriangles, ColourThatIsMissingFails) {
  levels = levelsOf({1, 2});
  EXPECT_EQ(failureOf([&] {
              ContourTriangle(drawing, at(0, 0, 0), at(100, 0, 0), at(0, 100, 3), levels, Array<Colour>(1));
            }),
            9);
}

// ---- Contours of a grid

class Contours : public ContourTriangles {
 protected:
  void contour(const Array2<float>& z, double xmin, double xmax, double ymin, double ymax) {
    Array<Colour> colors(levels.upper());
    for (int k = 1; k <= levels.upper(); ++k) colors[k] = Colour::fromBgr(k);
    drawing.GralContour(xmin, xmax, ymin, ymax, z, z.upper1(), z.upper2(), levels, colors, levels.upper());
  }
};

TEST_F(Contours, FlatCellsHaveNone) {
  levels = levelsOf({1, 2, 3});
  contour(gridOf(4, 3, [](int, int) { return 2; }), 0, 300, 0, 200);
  EXPECT_TRUE(drawn().empty());
}

TEST_F(Contours, WithoutLevelsAreNone) {
  levels = Array<float>(0);
  contour(gridOf(4, 3, [](int i, int j) { return i * j; }), 0, 300, 0, 200);
  EXPECT_TRUE(drawn().empty());
}

TEST_F(Contours, CellsAreCutFromTheirUpperLeftToTheirLowerRight) {
  // y grows with j, and here with y of the page
  drawing.GralYMap(0, 8, 0, 302);
  levels = levelsOf({0.5});
  contour(gridOf(2, 2, [](int i, int j) { return i == 1 && j == 1 ? 1 : 0; }), 0, 100, 0, 100);
  const double height = 302;
  const auto lower = lines();
  ASSERT_EQ(lower.size(), 1U);
  // from B-C's triangle with A alone: the segment joins the two edges at A
  expectLine(lower[0], 50, height, 0, height - 50);
  contour(gridOf(2, 2, [](int i, int j) { return i == 1 && j == 2 ? 1 : 0; }), 0, 100, 0, 100);
  const auto diagonal = lines();
  ASSERT_EQ(diagonal.size(), 2U);
  // B lies in both triangles, each of which has one end on the diagonal
  for (const auto& line : diagonal) {
    const bool onDiagonal = std::abs(line.x1 - 50) + std::abs(line.y1 - (height - 50)) < 0.001 ||
                            std::abs(line.x2 - 50) + std::abs(line.y2 - (height - 50)) < 0.001;
    EXPECT_TRUE(onDiagonal);
  }
}

TEST_F(Contours, TrianglesAreBCAAndThenBCD) {
  levels = levelsOf({0.5});
  // A and D are high, B and C low: one segment around each, A's first
  contour(gridOf(2, 2, [](int i, int j) { return i == j ? 1 : 0; }), 0, 100, 0, 100);
  const auto found = lines();
  ASSERT_EQ(found.size(), 2U);
  EXPECT_LT(std::max(found[0].x1, found[0].x2), 50.001);
  EXPECT_GT(std::min(found[1].x1, found[1].x2), 49.999);
  // (B, C, A): C counts as bottom of the two equal corners, so the long edge is C-A
  expectLine(found[0], 50, 0, 0, 50);
  expectLine(found[1], 100, 50, 50, 100);
}

TEST_F(Contours, OfAPlaneAreStraightAndParallel) {
  levels = levelsOf({1.3, 4.1, 7.77, 9.2});
  const auto plane = [](double x, double y) { return 0.013 * x + 0.021 * y; };
  contour(gridOf(21, 11, [&](int i, int j) { return plane(20.0 * (i - 1), 25.0 * (j - 1)); }), 0, 400, 0,
          250);
  double length[5] = {};
  for (const auto& line : lines()) {
    const double level = levels[line.color.bgr()];
    EXPECT_NEAR(plane(line.x1, line.y1), level, 1E-5);
    EXPECT_NEAR(plane(line.x2, line.y2), level, 1E-5);
    length[line.color.bgr()] += std::hypot(line.x1 - line.x2, line.y1 - line.y2);
  }
  for (int k = 1; k <= 4; ++k) {
    // the chord of the level through the rectangle
    const double level = levels[k];
    const auto xAt = [&](double y) { return std::clamp((level - 0.021 * y) / 0.013, 0.0, 400.0); };
    const auto yAt = [&](double x) { return std::clamp((level - 0.013 * x) / 0.021, 0.0, 250.0); };
    EXPECT_NEAR(length[k], std::hypot(xAt(0) - xAt(250), yAt(0) - yAt(400)), 0.01) << k;
  }
}

TEST_F(Contours, ColoursAreThoseOfTheLevelsAndTheDevicesIsPutBack) {
  levels = levelsOf({1.5, 2.5});
  drawing.GralColor(Colour::fromBgr(0x00FF00));
  contour(gridOf(3, 2, [](int i, int) { return i; }), 0, 100, 0, 100);
  EXPECT_EQ(form.ForeColor(), Colour::fromBgr(0x00FF00));
  for (const auto& line : lines()) {
    EXPECT_NEAR(line.x1, line.color.bgr() == 1 ? 25 : 75, 0.001);
    EXPECT_NEAR(line.x2, line.color.bgr() == 1 ? 25 : 75, 0.001);
  }
}

TEST_F(Contours, OnTheGridPointsAreDrawnOnce) {
  levels = levelsOf({2});
  contour(gridOf(3, 3, [](int i, int) { return i; }), 0, 100, 0, 100);
  const auto found = lines();
  double length = 0;
  for (const auto& line : found) {
    EXPECT_NEAR(line.x1, 50, 0.001);
    EXPECT_NEAR(line.x2, 50, 0.001);
    length += std::abs(line.y1 - line.y2);
  }
  EXPECT_NEAR(length, 100, 0.001);
}

TEST_F(Contours, OfACircularBowlKeepToTheCircle) {
  constexpr int kSidePoints = 61;
  constexpr double kStep = 4, kHalf = kStep * (kSidePoints - 1) / 2;
  const auto distance = [](double u) { return -kHalf + kStep * (u - 1); };
  const double radii[] = {10, 33.3, 57.1, 100};
  levels = levelsOf({10 * 10, 33.3 * 33.3, 57.1 * 57.1, 100 * 100});
  contour(gridOf(kSidePoints, kSidePoints,
                 [&](int i, int j) { return distance(i) * distance(i) + distance(j) * distance(j); }),
          0, 2 * kHalf, 0, 2 * kHalf);
  double angle[4] = {};
  for (const auto& line : lines()) {
    const double r = radii[line.color.bgr() - 1];
    const double x1 = line.x1 - kHalf, y1 = line.y1 - kHalf, x2 = line.x2 - kHalf, y2 = line.y2 - kHalf;
    // On an edge of length s the value u*u along it is at most s*s/4 below the straight line between its
    // ends; the diagonal has s*s = 2*step*step. Where the value is r*r the circle is so near.
    const double allowed = r - std::sqrt(r * r - 2 * kStep * kStep / 4) + 1E-3;
    for (const double found : {std::hypot(x1, y1), std::hypot(x2, y2)}) {
      EXPECT_LE(found, r + 1E-3);
      EXPECT_GE(found, r - allowed);
    }
    // and in between, no further inside than the chord of the triangle it crosses
    EXPECT_GE(std::hypot((x1 + x2) / 2, (y1 + y2) / 2), r - allowed - 2 * kStep * kStep / 8 / r - 1E-3);
    angle[line.color.bgr() - 1] += std::abs(std::atan2(x1 * y2 - x2 * y1, x1 * x2 + y1 * y2));
  }
  for (const double around : angle) EXPECT_NEAR(around, 2 * 3.14159265, 1E-3);
}

TEST_F(Contours, CloseUpFromTriangleToTriangle) {
  // every end of a segment inside the rectangle is the end of exactly two
  std::mt19937 random(7);
  std::uniform_real_distribution<double> value(0, 1);
  levels = levelsOf({0.31, 0.57, 0.83});
  contour(gridOf(12, 9, [&](int, int) { return value(random); }), 0, 550, 0, 240);
  std::map<std::array<long, 3>, int> ends;
  for (const auto& line : lines()) {
    for (const auto& [x, y] : {std::pair(line.x1, line.y1), std::pair(line.x2, line.y2)}) {
      if (x < 0.01 || x > 549.99 || y < 0.01 || y > 239.99) continue;
      ++ends[{std::lround(x * 100), std::lround(y * 100), line.color.bgr()}];
    }
  }
  EXPECT_GT(ends.size(), 100U);
  for (const auto& [end, count] : ends) EXPECT_EQ(count, 2) << end[0] << "," << end[1];
}

TEST_F(Contours, OfOneGridPointFail) {
  levels = levelsOf({1});
  EXPECT_EQ(failureOf([&] { contour(gridOf(1, 3, [](int, int) { return 0; }), 0, 1, 0, 1); }), 11);
  EXPECT_EQ(failureOf([&] { contour(gridOf(3, 1, [](int, int) { return 0; }), 0, 1, 0, 1); }), 11);
}

TEST_F(Contours, OfAnArrayThatIsTooSmallFail) {
  levels = levelsOf({1});
  const Array2<float> z = gridOf(3, 3, [](int i, int j) { return i + j; });
  const Array<Colour> colors(1);
  EXPECT_EQ(failureOf([&] { drawing.GralContour(0, 1, 0, 1, z, 4, 3, levels, colors, 1); }), 9);
  EXPECT_EQ(failureOf([&] { drawing.GralContour(0, 1, 0, 1, z, 3, 4, levels, colors, 1); }), 9);
}

}  // namespace
}  // namespace vk
