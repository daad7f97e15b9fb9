#include <algorithm>
#include <cmath>

#include "DrawnSurfaces.h"
#include "gral/BoxProjection.h"

namespace vk {
namespace {

class ColumnFields : public Surfaces {};

TEST_F(ColumnFields, HaveThreeFacesOfFourPointsEach) {
  drawing.GralLego3d(8, 4, 30, 45, 4, 3, 2, gridOf(2, 3, [](int i, int j) { return 0.1 * i + 0.2 * j; }), 2,
                     3, false, false);
  const auto found = figures();
  ASSERT_EQ(found.size(), 18U);
  const BoxProjection box({8, 4, 30, 45, 4, 3, 2});
  std::size_t n = 0;
  for (int j = 1; j <= 3; ++j) {
    for (int i = 1; i <= 2; ++i) {
      // the divisor is the number of cells
      const auto node = [&](int a, int b, double h) {
        return pixel(box.corner + a / 2.0 * box.xEdge + b / 3.0 * box.yEdge + h * box.ez);
      };
      const double h = 0.1F * static_cast<float>(i) + 0.2F * static_cast<float>(j);
      const std::vector<PixelPoint> side1{node(i - 1, j, 0), node(i, j, 0), node(i, j, h), node(i - 1, j, h)};
      const std::vector<PixelPoint> side2{node(i, j, 0), node(i, j - 1, 0), node(i, j - 1, h), node(i, j, h)};
      const std::vector<PixelPoint> top{node(i - 1, j, h), node(i, j, h), node(i, j - 1, h),
                                        node(i - 1, j - 1, h)};
      for (const auto& face : {side1, side2, top}) {
        EXPECT_EQ(found[n].points, face) << n;
        EXPECT_TRUE(found[n].fill && found[n].stroke);
        EXPECT_EQ(found[n].color, kWhite);
        ++n;
      }
    }
  }
}

TEST_F(ColumnFields, HaveOneShadeForEachFace) {
  drawing.GralLego3d(8, 4, 30, 45, 4, 3, 2, gridOf(2, 3, [](int, int) { return 1; }), 2, 3, true, true);
  const auto found = figures();
  ASSERT_EQ(found.size(), 18U);
  const double st = 0.5, ct = std::sqrt(0.75), sp = std::sqrt(0.5), cp = sp;
  // Of the sides sp*st and sp*ct is seen; of the top the product of its edges less a quarter of what they share.
  const double ab = st * st + ct * ct * cp * cp, cd = ct * ct + cp * cp * st * st,
               shared = st * ct + ct * cp * cp * st;
  const double shares[] = {sp * st, sp * ct, std::sqrt(ab * cd - shared * shared / 4)};
  for (std::size_t n = 0; n < found.size(); ++n) {
    const int gray = static_cast<int>(std::nearbyint(255 * std::pow(shares[n % 3], 0.25)));
    EXPECT_EQ(found[n].color, Colour::fromChannels(gray, gray, gray)) << n;
  }
}

TEST_F(ColumnFields, MayHaveOneCell) {
  drawing.GralLego3d(8, 4, 30, 45, 4, 3, 2, gridOf(1, 1, [](int, int) { return 1; }), 1, 1, true, false);
  EXPECT_EQ(figures().size(), 3U);
}

TEST_F(ColumnFields, WithoutCellsFail) {
  EXPECT_EQ(failureOf([&] { drawing.GralLego3d(8, 4, 30, 45, 4, 3, 2, flat(1, 1), 0, 1, true, false); }), 11);
}

TEST_F(ColumnFields, AreShownAfterEvery200AndPutTheFillingBack) {
  drawing.GralFillStyle(kFillUpward);
  drawing.GralFillColor(Colour::fromBgr(0x010203));
  drawing.GralLego3d(8, 4, 30, 45, 4, 3, 2, flat(20, 21), 20, 21, true, false);
  EXPECT_EQ(form.FillStyle(), kFillUpward);
  EXPECT_EQ(form.FillColor(), Colour::fromBgr(0x010203));
  int refreshes = 0, columns = 0;
  for (const std::string& line : drawn()) {
    refreshes += line == "refresh";
    columns += line != "refresh";
    if (line == "refresh") {
      EXPECT_EQ(columns, 600 * refreshes);
    }
  }
  EXPECT_EQ(refreshes, 2);
}

}  // namespace
}  // namespace vk
