#include "gral/sinks/Raster.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <numbers>
#include <random>

#include "gral/RasterForm.h"

namespace vk {
namespace {

int inkOf(const Raster& raster) {
  int count = 0;
  for (const std::uint32_t pixel : raster.pixels()) count += pixel == kInk;
  return count;
}

using Rows = std::vector<std::string>;

class RasterPicture : public ::testing::Test {
 protected:
  void SetUp() override { clean(8, 6); }
  void clean(int width, int height) { raster.reset(width, height, kPaper); }
  void line(PixelPoint a, PixelPoint b, int width = 1) { raster.line(a, b, Nib(width), kInk); }
  Raster raster;
};

TEST_F(RasterPicture, LineHasBothEnds) {
  line({1, 1}, {5, 1});
  line({7, 4}, {7, 2});
  EXPECT_EQ(rowsOf(raster), (Rows{"........", ".#####..", ".......#", ".......#", ".......#", "........"}));
}

TEST_F(RasterPicture, LineOfNoLengthIsOneSpot) {
  line({2, 2}, {2, 2});
  EXPECT_EQ(inkOf(raster), 1);
  EXPECT_EQ(raster.at(2, 2), kInk);
}

TEST_F(RasterPicture, SlantedLineIsTheSameFromBothEnds) {
  line({0, 0}, {7, 5});
  const Rows there = rowsOf(raster);
  EXPECT_EQ(there, (Rows{"#.......", ".##.....", "...#....", "....#...", ".....##.", ".......#"}));
  clean(8, 6);
  line({7, 5}, {0, 0});
  EXPECT_EQ(rowsOf(raster), there);
}

TEST_F(RasterPicture, WidePensAreRoundSpots) {
  clean(12, 6);
  line({2, 2}, {2, 2}, 2);
  line({6, 2}, {6, 2}, 4);
  line({10, 2}, {10, 2}, 3);
  EXPECT_EQ(rowsOf(raster), (Rows{".....##.....", ".##.####.###", ".##.####.###", ".....##..###",
                                  "............", "............"}));
}

TEST_F(RasterPicture, WideLineIsItsSpotMovedAlong) {
  for (const auto& [a, b] : {std::pair<PixelPoint, PixelPoint>{{6, 7}, {20, 7}}, {{9, 5}, {9, 22}}}) {
    for (int width = 1; width <= 6; ++width) {
      clean(30, 30);
      line(a, b, width);
      const Rows found = rowsOf(raster);
      clean(30, 30);
      for (int x = a.x; x <= b.x; ++x) {
        for (int y = a.y; y <= b.y; ++y) line({x, y}, {x, y}, width);
      }
      EXPECT_EQ(rowsOf(raster), found) << width;
    }
  }
}

/// The pixels whose distance from a segment is at most half the width, counted from where the tip's centre is.
int pixelsNear(PixelPoint a, PixelPoint b, int width, int sizeX, int sizeY, Raster& expected) {
  const double centre = width % 2 == 0 ? -0.5 : 0;
  expected.reset(sizeX, sizeY, kPaper);
  for (int y = 0; y < sizeY; ++y) {
    for (int x = 0; x < sizeX; ++x) {
      const double px = x - a.x - centre, py = y - a.y - centre;
      const double dx = b.x - a.x, dy = b.y - a.y, square = dx * dx + dy * dy;
      const double along = square == 0 ? 0 : std::clamp((px * dx + py * dy) / square, 0.0, 1.0);
      if (std::hypot(px - along * dx, py - along * dy) <= width / 2.0) expected.set(x, y, kInk);
    }
  }
  return inkOf(expected);
}

TEST_F(RasterPicture, LineOfAVeryWidePenIsAllThatIsNearIt) {
  const PixelPoint middle{150, 120};
  for (const int width : {Nib::kWidestWithRows + 1, Nib::kWidestWithRows + 2, 101}) {
    for (const PixelPoint end : {PixelPoint{150, 120},
                                 {230, 120},
                                 {60, 120},
                                 {150, 180},
                                 {150, 70},
                                 {210, 140},
                                 {170, 190},
                                 {70, 100},
                                 {130, 60},
                                 {90, 170},
                                 {-2000, 900}}) {
      clean(300, 240);
      line(middle, end, width);
      Raster expected;
      ASSERT_GT(pixelsNear(middle, end, width, 300, 240, expected), 3000);
      EXPECT_EQ(raster.pixels(), expected.pixels()) << width << " to " << end.x << ", " << end.y;
    }
  }
}

TEST_F(RasterPicture, PenOfAnyWidthHasATipOfFewRows) {
  EXPECT_EQ(Nib(Nib::kWidestWithRows).rows().size(), static_cast<std::size_t>(Nib::kWidestWithRows));
  EXPECT_TRUE(Nib(2000000000).rows().empty());
  EXPECT_EQ(Nib(2000000000).width(), 2000000000);
  line({-100, 3}, {100, 5}, 2000000000);
  EXPECT_EQ(inkOf(raster), 8 * 6);
}

TEST_F(RasterPicture, LinesOutOfAllBoundsAreCutToThePicture) {
  line({-2000000000, 3}, {2000000000, 3});
  EXPECT_EQ(rowsOf(raster)[3], "########");
  line({4, -2147483647}, {4, 2147483647}, 3);
  EXPECT_EQ(rowsOf(raster)[0], "...###..");
  clean(8, 6);
  line({-2147483647, -2147483647}, {2147483647, 2147483647});
  EXPECT_EQ(rowsOf(raster), (Rows{"#.......", ".#......", "..#.....", "...#....", "....#...", ".....#.."}));
  clean(8, 6);
  line({-2147483647, 2147483647}, {2147483647, 2147483646}, 5);
  line({100, 0}, {200, 50}, 9);
  line({2147483647, 2}, {2147483647, 9}, 9);
  EXPECT_EQ(inkOf(raster), 0);
}

TEST_F(RasterPicture, DrawingIsLimitedToTheClipRegion) {
  const PixelRect region{2, 1, 5, 4};
  raster.clip(&region);
  const PixelPoint all[] = {{-5, -5}, {50, -5}, {50, 50}, {-5, 50}};
  raster.polygon(all, {kInk, kFillSolid, 8});
  const Rows block{"........", "..###...", "..###...", "..###...", "........", "........"};
  EXPECT_EQ(rowsOf(raster), block);
  line({0, 0}, {7, 5}, 3);
  raster.ring({3, 3}, -1, 30, {kInk, kFillSolid, 8});
  raster.span(0, 0, 8, kInk);
  raster.set(7, 5, kInk);
  EXPECT_EQ(rowsOf(raster), block);
  raster.clip(nullptr);
  raster.set(7, 5, kInk);
  EXPECT_EQ(raster.at(7, 5), kInk);
}

TEST_F(RasterPicture, LinesInAClipRegionAreThePartsOfWholeLines) {
  constexpr PixelRect kRegion{9, 7, 24, 21};
  std::mt19937 random(5);
  std::uniform_int_distribution<int> anyX(2, 37), anyY(2, 27), anyWidth(1, 5);
  for (int i = 0; i < 2000; ++i) {
    const PixelPoint a{anyX(random), anyY(random)}, b{anyX(random), anyY(random)};
    const int width = anyWidth(random);
    clean(40, 30);
    line(a, b, width);
    const Raster whole = raster;
    clean(40, 30);
    raster.clip(&kRegion);
    line(a, b, width);
    for (int y = 0; y < 30; ++y) {
      for (int x = 0; x < 40; ++x) {
        const bool inside = x >= kRegion.x1 && x < kRegion.x2 && y >= kRegion.y1 && y < kRegion.y2;
        ASSERT_EQ(raster.at(x, y), inside ? whole.at(x, y) : kPaper) << a.x << " " << a.y << " " << width;
      }
    }
  }
}

TEST_F(RasterPicture, RegionThatIsEmptyLetsNothingThrough) {
  for (const PixelRect& region :
       {PixelRect{5, 1, 2, 4}, PixelRect{2, 4, 5, 1}, PixelRect{20, 20, 30, 30}, PixelRect{-9, -9, -1, -1}}) {
    raster.clip(&region);
    const PixelRect& seen = raster.seen();
    EXPECT_TRUE(seen.x2 >= seen.x1 && seen.y2 >= seen.y1) << region.x1;
    EXPECT_EQ((seen.x2 - seen.x1) * (seen.y2 - seen.y1), 0) << region.x1;
    line({0, 0}, {7, 5}, 3);
    raster.ring({3, 3}, -1, 30, {kInk, kFillSolid, 8});
    const PixelPoint all[] = {{-5, -5}, {50, -5}, {50, 50}, {-5, 50}};
    raster.polygon(all, {kInk, kFillSolid, 8});
    EXPECT_EQ(inkOf(raster), 0);
  }
}

TEST_F(RasterPicture, BlockIsCutToTheClipRegion) {
  const PixelRect region{2, 1, 7, 4};
  raster.clip(&region);
  raster.takeChanged();
  raster.block({-5, 2, 4, 100}, kInk);
  EXPECT_EQ(rowsOf(raster), (Rows{"........", "........", "..##....", "..##....", "........", "........"}));
  EXPECT_EQ(raster.takeChanged(), (PixelRect{2, 2, 4, 4}));
  raster.block({7, 1, 9, 4}, kInk);
  raster.block({4, 3, 3, 4}, kInk);
  EXPECT_EQ(inkOf(raster), 4);
  EXPECT_EQ(raster.takeChanged(), PixelRect{});
}

TEST_F(RasterPicture, AreaIsCutToTheClipRegionWhateverItsPattern) {
  const std::vector<RowSpan> area{{0, 0, 8}, {1, 0, 3}, {2, 3, 8}, {5, 0, 8}};
  const PixelRect region{2, 1, 5, 4};
  for (const int style : {kFillSolid, kFillHorizontal, kFillTransparent}) {
    clean(8, 6);
    raster.clip(&region);
    raster.paint(area, {kInk, style, 1});
    EXPECT_EQ(inkOf(raster), style == kFillTransparent ? 0 : 3) << style;
    EXPECT_EQ(raster.at(2, 1) == kInk, style != kFillTransparent) << style;
  }
}

TEST_F(RasterPicture, AreaAroundAPixelOutsideTheClipRegionIsEmpty) {
  const PixelRect region{2, 1, 5, 4};
  raster.clip(&region);
  for (const PixelPoint& start : {PixelPoint{1, 2}, {5, 2}, {3, 0}, {3, 4}})
    EXPECT_TRUE(raster.areaAround(start, kInk).empty()) << start.x << "," << start.y;
  EXPECT_EQ(raster.areaAround({4, 3}, kInk).size(), 3U);
}

TEST_F(RasterPicture, PolygonIsCutToTheClipRegion) {
  const PixelRect region{2, 1, 5, 4};
  raster.clip(&region);
  const PixelPoint all[] = {{-5, -5}, {50, -5}, {50, 50}, {-5, 50}};
  raster.polygon(all, {kInk, kFillSolid, 8});
  EXPECT_EQ(rowsOf(raster), (Rows{"........", "..###...", "..###...", "..###...", "........", "........"}));
}

TEST_F(RasterPicture, PolygonHoldsItsLeftAndUpperEdgeOnly) {
  const PixelPoint box[] = {{1, 1}, {4, 1}, {4, 3}, {1, 3}};
  raster.polygon(box, {kInk, kFillSolid, 8});
  EXPECT_EQ(rowsOf(raster), (Rows{"........", ".###....", ".###....", "........", "........", "........"}));
}

TEST_F(RasterPicture, PolygonOfTwoPointsIsEmpty) {
  const PixelPoint two[] = {{1, 1}, {4, 4}};
  raster.polygon(two, {kInk, kFillSolid, 8});
  EXPECT_EQ(inkOf(raster), 0);
}

TEST_F(RasterPicture, TrianglesThatShareEdgesNeitherOverlapNorLeaveGaps) {
  std::mt19937 random(7);
  std::uniform_int_distribution<int> place(-4, 44);
  for (int round = 0; round < 200; ++round) {
    // a fan of triangles about a point inside a square
    const PixelPoint corners[] = {{2, 2}, {38, 2}, {38, 38}, {2, 38}};
    const PixelPoint middle{3 + (place(random) + 4) * 34 / 48, 3 + (place(random) + 4) * 34 / 48};
    std::vector<int> covered(40 * 40, 0);
    for (std::size_t i = 0; i < 4; ++i) {
      clean(40, 40);
      const PixelPoint triangle[] = {corners[i], corners[(i + 1) % 4], middle};
      raster.polygon(triangle, {kInk, kFillSolid, 8});
      for (std::size_t p = 0; p < covered.size(); ++p) covered[p] += raster.pixels()[p] == kInk;
    }
    for (int y = 0; y < 40; ++y) {
      for (int x = 0; x < 40; ++x) {
        const int expected = x >= 2 && x < 38 && y >= 2 && y < 38;
        ASSERT_EQ(covered[static_cast<std::size_t>(y * 40 + x)], expected) << x << "," << y;
      }
    }
  }
}

TEST_F(RasterPicture, RingsFitIntoEachOther) {
  clean(41, 41);
  raster.ring({20, 20}, -1, 12.3, {kInk, kFillSolid, 8});
  const double disc = inkOf(raster);
  EXPECT_NEAR(disc, std::numbers::pi * 12.3 * 12.3, 12);
  clean(41, 41);
  raster.ring({20, 20}, 7.6, 12.3, {kInk, kFillSolid, 8});
  const int outer = inkOf(raster);
  EXPECT_EQ(raster.at(20, 20), kPaper);
  EXPECT_EQ(raster.at(20 + 7, 20), kPaper);
  EXPECT_EQ(raster.at(20 + 8, 20), kInk);
  raster.ring({20, 20}, -1, 7.6, {kInk, kFillSolid, 8});
  EXPECT_EQ(inkOf(raster), disc);
  EXPECT_GT(disc, outer);
}

TEST_F(RasterPicture, SmallRingIsASpot) {
  raster.ring({2, 2}, -1, 0, {kInk, kFillSolid, 8});
  EXPECT_EQ(inkOf(raster), 1);
  raster.ring({5, 2}, -1, -0.5, {kInk, kFillSolid, 8});
  EXPECT_EQ(inkOf(raster), 1);
}

TEST_F(RasterPicture, HatchesAreLinesOnTheBackground) {
  const PixelPoint all[] = {{0, 0}, {16, 0}, {16, 16}, {0, 16}};
  const auto hatch = [&](int style) {
    clean(16, 16);
    raster.polygon(all, {kInk, style, 4});
    return rowsOf(raster);
  };
  EXPECT_EQ(hatch(kFillTransparent)[0], "................");
  EXPECT_EQ(hatch(kFillHorizontal)[0], "################");
  EXPECT_EQ(hatch(kFillHorizontal)[1], "................");
  EXPECT_EQ(hatch(kFillVertical)[1], "#...#...#...#...");
  EXPECT_EQ(hatch(kFillUpward)[1], "...#...#...#...#");
  EXPECT_EQ(hatch(kFillDownward)[1], ".#...#...#...#..");
  EXPECT_EQ(hatch(kFillCross)[1], "#...#...#...#...");
  EXPECT_EQ(hatch(kFillCross)[4], "################");
  EXPECT_EQ(hatch(kFillDiagonalCross)[1], ".#.#.#.#.#.#.#.#");
}

TEST_F(RasterPicture, MaskPaintsItsBlackPixels) {
  const GlyphMask mask{1, -1, 3, 2, {1, 0, 1, 0, 1, 0}};
  raster.mask({2, 3}, mask, kInk);
  EXPECT_EQ(rowsOf(raster), (Rows{"........", "........", "...#.#..", "....#...", "........", "........"}));
}

TEST_F(RasterPicture, TellsWhatHasChanged) {
  EXPECT_EQ(raster.takeChanged(), (PixelRect{0, 0, 8, 6}));
  EXPECT_EQ(raster.takeChanged(), PixelRect{});
  line({1, 2}, {3, 2});
  line({5, 4}, {5, 4});
  EXPECT_EQ(raster.takeChanged(), (PixelRect{1, 2, 6, 5}));
}

TEST_F(RasterPicture, IsBlankAfterAReset) {
  line({0, 0}, {7, 5});
  clean(8, 6);
  EXPECT_EQ(inkOf(raster), 0);
  raster.reset(3, 2, kInk);
  EXPECT_EQ(raster.at(2, 1), kInk);
  raster.reset(4, 3, kPaper);
  EXPECT_EQ(raster.pixels(), std::vector<std::uint32_t>(12, kPaper));
  raster.reset(4, 4, kInk);
  EXPECT_EQ(raster.reduced(2).pixels, std::vector<std::uint32_t>(4, kInk));
}

TEST_F(RasterPicture, IsReducedToTheMeanByAnyFactor) {
  std::mt19937 random(11);
  for (const int factor : {1, 2, 3, 4, 5, 8}) {
    clean(3 * factor, 2 * factor);
    for (int y = 0; y < raster.height(); ++y) {
      for (int x = 0; x < raster.width(); ++x) {
        raster.set(x, y, 0xFF000000U | static_cast<std::uint32_t>(random() & 0xFFFFFF));
      }
    }
    if (factor == 8)
      raster.polygon(std::array<PixelPoint, 4>{{{0, 0}, {24, 0}, {24, 8}, {0, 8}}}, {kPaper, kFillSolid, 8});
    const Picture small = raster.reduced(factor);
    for (int y = 0; y < 2; ++y) {
      for (int x = 0; x < 3; ++x) {
        for (const int shift : {0, 8, 16}) {
          double sum = 0;
          for (int i = 0; i < factor * factor; ++i) {
            sum += raster.at(x * factor + i % factor, y * factor + i / factor) >> shift & 0xFF;
          }
          const int mean = static_cast<int>(std::floor(sum / (factor * factor) + 0.5));
          EXPECT_EQ(static_cast<int>(small.pixels[static_cast<std::size_t>(3 * y + x)] >> shift & 0xFF),
                    mean);
        }
        EXPECT_EQ(small.pixels[static_cast<std::size_t>(3 * y + x)] >> 24, 0xFFU);
      }
    }
  }
}

TEST_F(RasterPicture, IsReducedToTheMeanOfItsSquares) {
  clean(4, 4);
  raster.span(0, 0, 2, 0xFFFF0000);
  raster.set(2, 2, kInk);
  const Picture small = raster.reduced(2);
  ASSERT_EQ(small.width, 2);
  ASSERT_EQ(small.height, 2);
  EXPECT_EQ(small.pixels, (std::vector<std::uint32_t>{0xFFFF8080, 0xFFFFFFFF, 0xFFFFFFFF, 0xFFBFBFBF}));
  const Picture part = raster.reduced(2, {2, 3, 3, 4});
  ASSERT_EQ(part.width, 1);
  EXPECT_EQ(part.pixels, std::vector<std::uint32_t>{0xFFBFBFBF});
}

TEST_F(RasterPicture, PartBesideWhatWasDrawnIsReducedToTheGround) {
  clean(8, 6);
  raster.span(2, 0, 3, kInk);
  const Picture part = raster.reduced(2, {4, 0, 8, 6});
  EXPECT_EQ(part.width, 2);
  EXPECT_EQ(part.pixels, std::vector<std::uint32_t>(6, kPaper));
}

TEST_F(RasterPicture, ColoursHaveRedInTheLowestByte) {
  EXPECT_EQ(Raster::pixelOf(Colour::fromBgr(0x0000FF)), 0xFFFF0000U);
  EXPECT_EQ(Raster::pixelOf(Colour::fromBgr(0x123456)), 0xFF563412U);
}

}  // namespace
}  // namespace vk
