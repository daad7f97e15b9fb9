// Unit GralCls: marks.

#include <cmath>
#include <vector>

#include "base/Length.h"
#include "base/Rounding.h"
#include "gral/PixelPath.h"
#include "gral/Plotting.h"
#include "gral/SavedDrawing.h"

namespace vk {
namespace {

constexpr int kShapes = 5;

}  // namespace

void GralCls::GralMakeMark(double fdim, double jMark) {
  GralMarkDim = toSingle(fdim);
  GralMarkTyp = toInt16(jMark);
}

void GralCls::GralMark(double x, double y) {
  const double px = xUsr2Scr(x);
  const double py = yUsr2Scr(y);
  const double R = std::abs(xLog2Scr(static_cast<double>(GralMarkDim) / kMmPerCm));
  const SavedDrawing saved(*GralDev);
  GralDev->setDrawStyle(kDrawSolid);
  GralDev->setFillStyle(kFillSolid);
  GralDev->setFillColor(GralMarkTyp > kShapes ? GralMarkColor : kWhite);
  const int shape = (GralMarkTyp - 1) % kShapes + 1;
  if (shape == kShapes) {
    GralDev->Circle(px, py, R);
  } else {
    outlineMark(shape, px, py, R);
  }
}

void GralCls::outlineMark(int shape, double px, double py, double R) {
  const double A = 4 * std::atan(1.0) * R * R;
  const double q = std::sqrt(A);
  const double root3 = std::sqrt(3.0);
  const double t = std::sqrt(4 / root3 * A);
  switch (shape) {
    case 1:
      // QUIRK: the upward triangle alone is outlined in this colour, mostly black, whatever that of the lines.
      GralDev->setForeColor(GralMarkColor);
      return polygonMark(
          {{px - t / 2, py + t / 2 / root3}, {px, py - t / root3}, {px + t / 2, py + t / 2 / root3}});
    case 2:
      return polygonMark(
          {{px - t / 2, py - t / 2 / root3}, {px, py + t / root3}, {px + t / 2, py - t / 2 / root3}});
    case 3: {
      const double xa = px - q / 2, ya = py + q / 2, yb = py - q / 2;
      return polygonMark({{xa, ya}, {xa, yb}, {xa + q, yb}, {xa + q, ya}});
    }
    case 4: {
      const double h = q / std::sqrt(2.0);
      return polygonMark({{px - h, py}, {px, py - h}, {px + h, py}, {px, py + h}});
    }
    default:
      return;  // type 0 has no shape
  }
}

void GralCls::polygonMark(std::initializer_list<std::array<double, 2>> vertices) {
  std::vector<PixelPlace> points;
  for (const auto& [x, y] : vertices) points.push_back(pixelOfScr(x, y));
  makePath(*GralDev, points);
  GralDev->StrokeAndFillPath();
}

}  // namespace vk
