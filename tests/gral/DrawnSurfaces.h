#pragma once

#include <algorithm>
#include <vector>

#include "SurfaceFixture.h"

namespace vk {

/// What is drawn with pixels, with the filling of each figure.
class FigureCatcher : public LineWriter {
 public:
  struct Figure {
    std::vector<PixelPoint> points;
    bool fill, stroke;
    Colour color;
  };
  std::vector<Figure> figures;
  void filling(const Filling& filling) override { filling_ = filling; }
  void figure(std::span<const PixelPoint> points, bool fill, bool stroke) override {
    figures.push_back({{points.begin(), points.end()}, fill, stroke, filling_.color});
    if (fill) {
      EXPECT_EQ(filling_.style, kFillSolid);
    }
  }

 private:
  Filling filling_;
};

/// Surfaces over a floor of 8 x 4, as they come to a form.
class Surfaces : public GralFixture {
 protected:
  struct Look {
    float theta = 30, phi = 45;
    float Vx = 4, Vy = 4, Vz = 3;
    bool gray = false, color = false;
  };
  static Array2<float> noColors() { return {}; }
  static Array2<float> colorsOf(int n) {
    Array2<float> hsb(n, 3);
    for (int c = 1; c <= n; ++c) {
      hsb(c, 1) = static_cast<float>(c) / 10;
      hsb(c, 2) = 1;
      hsb(c, 3) = 0.4F;
    }
    return hsb;
  }
  void surface(GralCls& onto, const Array2<float>& z, const Look& look, const Array<float>& levels = {},
               const Array2<float>& colors = {}) {
    onto.Surf3D(8, 4, look.theta, look.phi, look.Vx, look.Vy, look.Vz, z, z.upper1(), z.upper2(), look.gray,
                look.color, levelsOf({0.6, 0.5, 0.4}), levels, std::max(0, levels.upper()), colors,
                std::max(0, colors.upper1()));
  }
  std::vector<FigureCatcher::Figure> figures() {
    FigureCatcher catcher;
    form.list().replay(catcher);
    form.forget();
    return catcher.figures;
  }
  /// The pixel of a Usr point.
  PixelPoint pixel(const UsrPoint& usr) const {
    return {drawing.xUsr2Pixel(usr.x), drawing.yUsr2Pixel(usr.y)};
  }
};

/// A grid of zeros.
inline Array2<float> flat(int nx, int ny) {
  return gridOf(nx, ny, [](int, int) { return 0; });
}

}  // namespace vk
