#include "gral/DrawnBox.h"

#include <cmath>
#include <limits>
#include <random>
#include <type_traits>

#include "base/RuntimeError.h"
#include "gral/sinks/RecorderDevice.h"

namespace vk {
namespace {

constexpr DrawnBox<unit::Pixel> kBox{{-100, -50}, {300, 150}};
constexpr DrawnBox<unit::Twip> kTwipBox{{-100, -50}, {300, 150}};
constexpr double kInfinite = std::numeric_limits<double>::infinity();

template <class Unit>
bool same(const PlanePoint<Unit>& a, const PlanePoint<std::type_identity_t<Unit>>& b, double tolerance = 0) {
  return std::abs(a.x - b.x) <= tolerance && std::abs(a.y - b.y) <= tolerance;
}

/// True when a point lies inside an outline by the even-odd rule.
template <class Unit>
bool insideOutline(const std::vector<PlanePoint<Unit>>& outline, const PlanePoint<Unit>& p) {
  bool inside = false;
  for (std::size_t i = 0; i < outline.size(); ++i) {
    const PlanePoint<Unit>&a = outline[i], &b = outline[(i + 1) % outline.size()];
    if ((a.y > p.y) != (b.y > p.y) && p.x < a.x + (b.x - a.x) * ((p.y - a.y) / (b.y - a.y))) inside = !inside;
  }
  return inside;
}

TEST(DrawnBoxes, SurroundTheDrawingAreaFarOutside) {
  RecorderDevice form{FormMetrics{{0, 0}, 3}};
  form.setWidth(9000);
  form.setHeight(4500);
  form.setDrawWidth(2);
  const DrawnBox<unit::Twip> twips = drawnTwips(form);
  const DrawnBox<unit::Pixel> pixels = drawnPixels(form);
  EXPECT_TRUE(same(twips.low, {-100030, -100030}));
  EXPECT_TRUE(same(twips.high, {109030, 104530}));
  EXPECT_TRUE(same(pixels.low, {-20006, -20006}, 1E-9));
  EXPECT_TRUE(same(pixels.high, {21806, 20906}, 1E-9));
}

TEST(DrawnBoxes, LeaveALineWithinAsItIs) {
  TwipPoint a{-100, 150}, b{300, 0.1};
  EXPECT_TRUE(cutLine(kTwipBox, a, b));
  EXPECT_TRUE(same(a, {-100, 150}) && same(b, {300, 0.1}));
}

TEST(DrawnBoxes, CutALineInItsDirection) {
  TwipPoint a{0, 0}, b{1E12, 1E11};
  EXPECT_TRUE(cutLine(kTwipBox, a, b));
  EXPECT_TRUE(same(a, {0, 0}));
  EXPECT_TRUE(same(b, {300, 30}, 1E-9)) << b.x << ", " << b.y;
  TwipPoint c{2E15, 100 - 2E15}, d{-1E15, 100 + 1E15};
  EXPECT_TRUE(cutLine(kTwipBox, c, d));
  EXPECT_TRUE(same(c, {150, -50}, 0.5)) << c.x << ", " << c.y;
  EXPECT_TRUE(same(d, {-50, 150}, 0.5)) << d.x << ", " << d.y;
}

TEST(DrawnBoxes, LetNothingThroughOfALineThatPassesBy) {
  for (const auto& [from, to] : {std::pair{TwipPoint{-200, 0}, TwipPoint{-101, 90}},
                                 {{0, 1E300}, {200, 1E300}},
                                 {{-300, 100}, {100, 301}}}) {
    TwipPoint a = from, b = to;
    EXPECT_FALSE(cutLine(kTwipBox, a, b));
  }
}

TEST(DrawnBoxes, RefuseWhatIsNotFinite) {
  for (const double bad : {kInfinite, -kInfinite, std::nan("")}) {
    TwipPoint a{0, 0}, b{bad, 0};
    const std::vector<PixelPlace> points{{0, 0}, {0, bad}, {0, 0}, {0, 0}};
    EXPECT_THROW(cutLine(kTwipBox, a, b), RuntimeError);
    EXPECT_THROW(cutPolyline(kBox, points), RuntimeError);
    EXPECT_THROW(cutCurve(kBox, points), RuntimeError);
    EXPECT_THROW(cutArea(kBox, points), RuntimeError);
    EXPECT_THROW(cutCircle(kTwipBox, b, Twips(1)), RuntimeError);
    EXPECT_THROW(cutCircle(kTwipBox, a, Twips(bad)), RuntimeError);
  }
  EXPECT_THROW(cutCircle(kTwipBox, {1.5E308, 0}, Twips(1.5E308)), RuntimeError);
}

TEST(DrawnBoxes, CutALineOfManyPointsIntoTheParts) {
  const PixelPlace points[] = {{0, 0}, {10, 10}, {10, 10}, {10, 1E9}, {500, 1E9}, {250, 100}, {250, 90}};
  const auto parts = cutPolyline(kBox, points);
  ASSERT_EQ(parts.size(), 2U);
  ASSERT_EQ(parts[0].size(), 4U);
  EXPECT_TRUE(same(parts[0][2], {10, 10}) && same(parts[0][3], {10, 150}));
  ASSERT_EQ(parts[1].size(), 3U);
  EXPECT_TRUE(same(parts[1][0], {250, 150}, 0.001));
  EXPECT_TRUE(same(parts[1][2], {250, 90}));
}

TEST(DrawnBoxes, CutLineThatCrossesBetweenPointsOutside) {
  const PixelPlace points[] = {{-200, 0}, {400, 0}, {400, 100}, {-200, 100}};
  const auto parts = cutPolyline(kBox, points);
  ASSERT_EQ(parts.size(), 2U);
  EXPECT_TRUE(same(parts[0][0], {-100, 0}) && same(parts[0][1], {300, 0}));
  EXPECT_TRUE(same(parts[1][0], {300, 100}) && same(parts[1][1], {-100, 100}));
}

TEST(DrawnBoxes, CurvesWithinStayAndOthersAreHalvedUntilTheyLieWithin) {
  const PixelPlace within[] = {{0, 0}, {10, 20}, {20, 20}, {30, 0}, {40, -20}, {50, -20}, {60, 0}};
  const auto whole = cutCurve(kBox, within);
  ASSERT_EQ(whole.size(), 1U);
  ASSERT_EQ(whole[0].size(), 7U);
  EXPECT_TRUE(same(whole[0][5], {50, -20}));

  // y = 1E9 s (1 - s) (1 - 2 s) + 3 s over x = 200 s: up, down and up again
  const auto at = [](double s) { return PixelPlace{200 * s, 1E9 * s * (1 - s) * (1 - 2 * s) + 3 * s}; };
  const PixelPlace points[] = {{0, 0}, {200.0 / 3, 1E9 / 3 + 1}, {400.0 / 3, -1E9 / 3 + 2}, {200, 3}};
  const auto parts = cutCurve(kBox, points);
  ASSERT_EQ(parts.size(), 3U);
  for (const auto& part : parts) {
    ASSERT_EQ(part.size() % 3, 1U);
    for (const PixelPlace& p : part) EXPECT_TRUE(kBox.holds(p)) << p.x << ", " << p.y;
    for (std::size_t i = 0; i < part.size(); i += 3) {
      EXPECT_NEAR(part[i].y, at(part[i].x / 200).y, 1E-3);
    }
  }
  EXPECT_TRUE(same(parts.front().front(), {0, 0}));
  EXPECT_NEAR(parts.front().back().y, 150, 2);
  EXPECT_NEAR(parts[1].front().y, 150, 2);
  EXPECT_NEAR(parts[1].back().y, -50, 2);
  EXPECT_TRUE(same(parts.back().back(), {200, 3}));
}

TEST(DrawnBoxes, CurvesOfAnySizeComeToAnEnd) {
  const PixelPlace points[] = {{-1E300, 0}, {1E300, 1E300}, {-1E300, -1E300}, {1E300, 0}};
  for (const auto& part : cutCurve(kBox, points)) {
    for (const PixelPlace& p : part) EXPECT_TRUE(kBox.holds(p));
  }
}

TEST(DrawnBoxes, AreasKeepTheirInside) {
  std::mt19937 random(1);
  std::uniform_real_distribution<double> place(-1000, 1000), x(-100, 300), y(-50, 150);
  for (int n = 0; n < 200; ++n) {
    std::vector<PixelPlace> outline;
    for (int i = 0; i < 3 + n % 4; ++i) outline.push_back({place(random), place(random)});
    const std::vector<PixelPlace> cut = cutArea(kBox, outline);
    for (const PixelPlace& p : cut) EXPECT_TRUE(kBox.holds(p));
    for (int i = 0; i < 50; ++i) {
      const PixelPlace p{x(random), y(random)};
      EXPECT_EQ(insideOutline(cut, p), insideOutline(outline, p)) << n;
    }
  }
  EXPECT_TRUE(cutArea(kBox, std::vector<PixelPlace>{{-200, 0}, {-300, 1}, {-200, 50}}).empty());
}

TEST(DrawnBoxes, CirclesKeepTheirInside) {
  std::mt19937 random(2);
  std::uniform_real_distribution<double> x(-100, 300), y(-50, 150);
  for (const auto& [centre, radius] : {std::pair{TwipPoint{0, 0}, 120.0},
                                       {{1E7, 50}, 1E7 - 100},
                                       {{-1E12, 100}, 1E12},
                                       {{100, 3E9}, 3E9 - 20},
                                       {{0, 0}, 1E15},
                                       {{1E200, 0}, 1E200}}) {
    const std::vector<TwipPoint> outline = cutCircle(kTwipBox, centre, Twips(radius));
    EXPECT_LT(outline.size(), 2000U);
    for (const TwipPoint& p : outline) EXPECT_TRUE(kTwipBox.holds(p));
    for (int i = 0; i < 300 && radius < 1E100; ++i) {
      const TwipPoint p{x(random), y(random)};
      const double beyond = std::hypot(p.x - centre.x, p.y - centre.y) - radius;
      if (std::abs(beyond) < 1.1) continue;
      EXPECT_EQ(insideOutline(outline, p), beyond < 0) << radius;
    }
  }
  EXPECT_TRUE(cutCircle(kTwipBox, {1E6, 0}, Twips(1000)).empty());
}

}  // namespace
}  // namespace vk
