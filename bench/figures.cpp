// What figures cost: to the finished picture, and to the files of vectors.

#include <cmath>

#include "bench/FigureBench.h"

namespace vk {
namespace {

constexpr int kPoints = 32767;
constexpr int kSegments = 100000;
constexpr int kTexts = 1000;

struct Points {
  Array<double> x{kPoints}, y{kPoints}, ex{kPoints}, ey{kPoints};
  Points() {
    for (int i = 1; i <= kPoints; ++i) {
      x[i] = 0.3 + 9.4 * i / kPoints;
      y[i] = 5 + 3 * std::sin(i * 0.37) + std::cos(i * 0.011);
      ex[i] = 0.3;
      ey[i] = 0.4;
    }
  }
};

void drawPoints(GralCls& drawing) {
  static const Points points;
  drawing.GralXMap(0, drawing.XrLog, 0, 10);
  drawing.GralYMap(0, drawing.YtLog, 0, 10);
  drawing.PlotData(points.x, points.ex, points.y, points.ey, kPoints, true, false, false);
}

void drawDashes(GralCls& drawing) {
  Array<double> x(kSegments + 1), y(kSegments + 1);
  for (int i = 1; i <= kSegments + 1; ++i) {
    const double a = i * 0.0031;
    x[i] = 12 + (2 + i * 7E-5) * std::cos(a);
    y[i] = 9.5 + (2 + i * 6E-5) * std::sin(a);
  }
  drawing.GralPen(1, 4);
  drawing.GralDraw(x, y, kSegments + 1);
}

void drawTexts(GralCls& drawing) {
  for (int i = 0; i < kTexts; ++i) {
    drawing.GralWPrint(1 + 2.4 * (i % 10), 1 + 0.17 * (i / 10), 1, static_cast<int>(30 * (i % 3)), 6 + i % 5,
                       "x_{max}^2 = 10^{-3} \\\\m");
  }
}

FIGURE(points_with_bars, drawPoints);
FIGURE(dashed_polyline, drawDashes);
FIGURE(texts, drawTexts);

}  // namespace
}  // namespace vk
