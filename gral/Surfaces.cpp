// Unit GralCls: surfaces and columns.

#include <algorithm>
#include <array>
#include <cmath>
#include <vector>

#include "base/CheckedMath.h"
#include "base/Rounding.h"
#include "gral/BandTriangle.h"
#include "gral/BoxProjection.h"
#include "gral/PixelPath.h"
#include "gral/SavedDrawing.h"
#include "gral/Shade.h"

namespace vk {
namespace {

/// After so many cells or columns a form shows what is there.
constexpr int kShowEvery = 200;

/// A grid point of a surface as it is seen.
struct SurfacePoint {
  float x, y;  ///< Usr
  PixelPlace pixel;
  float z;
  int k;

  UsrCorner inUsr() const { return {{x, y}, z, k}; }
  PixelCorner inPixels() const { return {pixel, z, k}; }
};

double twiceTheArea(const PixelPlace& a, const PixelPlace& b, const PixelPlace& c) {
  return std::abs((b.x - a.x) * (c.y - a.y) - (c.x - a.x) * (b.y - a.y));
}

/// How bright the halves of a cell are, by their tilt.
class CellShades {
 public:
  /// Sides of a cell in Usr, and pixels to a Usr unit.
  CellShades(double dx, double dy, double unit) : dx_(dx), dy_(dy), unit_(unit) {}

  double first(const SurfacePoint& A, const SurfacePoint& B, const SurfacePoint& C) const {
    return gray(riseOf(A, B), riseOf(C, B), twiceTheArea(A.pixel, C.pixel, B.pixel));
  }
  /// QUIRK: the slope along x is that from A to D, across the cell.
  double second(const SurfacePoint& A, const SurfacePoint& B, const SurfacePoint& C,
                const SurfacePoint& D) const {
    return gray(riseOf(A, D), riseOf(C, D), twiceTheArea(B.pixel, C.pixel, D.pixel));
  }

 private:
  static double riseOf(const SurfacePoint& from, const SurfacePoint& to) {
    return static_cast<double>(to.z) - static_cast<double>(from.z);
  }
  static double square(double value) { return value * value; }
  double gray(double rise1, double rise2, double pixelArea) const {
    const double N = square(dx_ * dy_) + square(dx_ * rise1) + square(dy_ * rise2);
    const double P = square(checked::divide(pixelArea / unit_, unit_));
    return grayOf(checked::divide(std::min(P, N), N));
  }

  double dx_, dy_, unit_;
};

void fillTriangle(Device& device, Colour color, const SurfacePoint& a, const SurfacePoint& b,
                  const SurfacePoint& c) {
  device.setFillColor(color);
  const PixelPlace outline[] = {a.pixel, b.pixel, c.pixel, a.pixel};
  makePath(device, outline);
  device.FillPath();
}

/// What the cells of a surface are drawn with.
struct SurfaceStyle {
  CellShades shades;
  bool Gray3d, Col3d;
  bool banded, lined;
  const Array<float>& HSBColSur;
  const Array<float>& ValLev;
  const Array2<float>& HSBColLev;
};

void drawCell(GralCls& drawing, const SurfaceStyle& style, const SurfacePoint& A, const SurfacePoint& B,
              const SurfacePoint& C, const SurfacePoint& D) {
  Device& device = *drawing.GralDev;
  const double gray1 = style.Gray3d ? style.shades.first(A, B, C) : 0;
  const double gray2 = style.Gray3d ? style.shades.second(A, B, C, D) : 0;
  const LevelColors colors{style.HSBColLev, style.Gray3d, (gray1 + gray2) / 2};
  if (style.banded) {
    BandFillTriangle(device, A.inPixels(), C.inPixels(), B.inPixels(), style.ValLev, colors);
    BandFillTriangle(device, B.inPixels(), C.inPixels(), D.inPixels(), style.ValLev, colors);
  } else if (style.Gray3d) {
    fillTriangle(device, faceColor(gray1, style.Col3d, style.HSBColSur), A, C, B);
    fillTriangle(device, faceColor(gray2, style.Col3d, style.HSBColSur), B, C, D);
  }
  if (style.lined) {
    BandLinesTriangle(drawing, A.inUsr(), C.inUsr(), B.inUsr(), style.ValLev, colors);
    BandLinesTriangle(drawing, B.inUsr(), C.inUsr(), D.inUsr(), style.ValLev, colors);
  }
  const PixelPlace outline[] = {A.pixel, C.pixel, D.pixel, B.pixel, A.pixel};
  makePath(device, outline);
  device.StrokePath();
}

/// The columns of a field: its steps from cell to cell, and the colours of the faces that are seen.
class Columns {
 public:
  Columns(GralCls& drawing, const BoxView& view, int nx, int ny, bool Gray3d)
      : drawing_(drawing),
        box_(view),
        xStep_(checked::divide(1, nx) * box_.xEdge),
        yStep_(checked::divide(1, ny) * box_.yEdge) {
    const auto [a, b] = xStep_;
    const auto [c, d] = yStep_;
    const double ux = view.Vx / nx, uy = view.Vy / ny;
    const double across = a * c + b * d;
    const double s1 = std::abs(checked::divide(box_.sp * a, ux));
    const double s2 = std::abs(checked::divide(box_.sp * c, uy));
    // QUIRK: only a quarter of what the edges have in common is taken off, so that tops are a little bright.
    const double s3 = checked::sqrt((a * a + b * b) * (c * c + d * d) - across * across / 4) / ux / uy;
    if (!Gray3d) return;
    std::size_t n = 0;
    for (const double share : {s1, s2, s3}) colors_[n++] = faceColor(grayOf(share), false, {});
  }

  /// The column of cell i, j, from 1, and of height z.
  void draw(int i, int j, double z) const {
    const UsrPoint P = box_.corner + static_cast<double>(j) * yStep_ + static_cast<double>(i) * xStep_;
    const UsrPoint Q = P - xStep_, R = P - yStep_, S = Q - yStep_;
    const UsrPoint h = z * box_.ez;
    face(colors_[0], {Q, P, P + h, Q + h});
    face(colors_[1], {P, R, R + h, P + h});
    face(colors_[2], {Q + h, P + h, R + h, S + h});
  }

 private:
  void face(Colour color, const std::array<UsrPoint, 4>& corners) const {
    std::array<PixelPlace, 4> points;
    for (std::size_t n = 0; n < points.size(); ++n)
      points[n] = drawing_.pixelOfUsr(corners[n].x, corners[n].y);
    drawing_.GralDev->setFillColor(color);
    makePath(*drawing_.GralDev, points);
    drawing_.GralDev->StrokeAndFillPath();
  }

  GralCls& drawing_;
  BoxProjection box_;
  UsrPoint xStep_, yStep_;
  std::array<Colour, 3> colors_{kWhite, kWhite, kWhite};
};

}  // namespace

void GralCls::Surf3D(float Xoc, float Yoc, float theta, float phi, float Vx, float Vy, float Vz,
                     const Array2<float>& z, Int16 nx, Int16 ny, bool Gray3d, bool Col3d,
                     const Array<float>& HSBColSur, const Array<float>& ValLev, int nValLev,
                     const Array2<float>& HSBColLev, int nColLev) {
  const BoxProjection box({Xoc, Yoc, theta, phi, Vx, Vy, Vz});
  const CellShades shades(checked::divide(Vx, nx - 1), checked::divide(Vy, ny - 1), yPixelsPerUsr());
  const bool levels = nValLev > 0;
  const SurfaceStyle style{
      shades,    Gray3d, Col3d,    levels && nColLev > nValLev, levels && nColLev == nValLev,
      HSBColSur, ValLev, HSBColLev};
  std::vector<SurfacePoint> points;
  for (int j = 1; j <= ny; ++j) {
    for (int i = 1; i <= nx; ++i) {
      const UsrPoint floor = box.corner + (i - 1.0) / (nx - 1) * box.xEdge + (j - 1.0) / (ny - 1) * box.yEdge;
      const float x = toSingle(floor.x), y = toSingle(floor.y + static_cast<double>(z(i, j)) * box.sp);
      const int k = levels ? LevelIndex(z(i, j), ValLev, nValLev) : 0;
      points.push_back({x, y, pixelOfUsr(x, y), z(i, j), k});
    }
  }
  const auto at = [&points, nx](int i, int j) -> const SurfacePoint& {
    return points[static_cast<std::size_t>((j - 1) * nx + i - 1)];
  };

  const SavedDrawing saved(*GralDev);
  GralDev->setFillStyle(kFillSolid);
  GralDev->setFillColor(Col3d ? HsbToRgb(HSBColSur[1], HSBColSur[2], HSBColSur[3]) : kWhite);
  int done = 0;
  for (int j = 1; j < ny; ++j) {
    for (int i = 1; i < nx; ++i) {
      drawCell(*this, style, at(i, j), at(i, j + 1), at(i + 1, j), at(i + 1, j + 1));
      if (++done % kShowEvery == 0) GralRefresh();
    }
  }
  GralRefresh();
}

void GralCls::GralLego3d(float Xoc, float Yoc, float theta, float phi, float Vx, float Vy, float Vz,
                         const Array2<float>& z, Int16 nx, Int16 ny, bool Gray3d, bool) {
  const Columns columns(*this, {Xoc, Yoc, theta, phi, Vx, Vy, Vz}, nx, ny, Gray3d);
  const SavedDrawing saved(*GralDev);
  GralDev->setFillStyle(kFillSolid);
  GralDev->setFillColor(kWhite);
  int done = 0;
  for (int j = 1; j <= ny; ++j) {
    for (int i = 1; i <= nx; ++i) {
      columns.draw(i, j, z(i, j));
      if (++done % kShowEvery == 0) GralRefresh();
    }
  }
}

/// Pixels to a Usr unit of y, before they are rounded to whole ones.
double GralCls::yPixelsPerUsr() const {
  return std::abs(yUsr2Scr(1) - yUsr2Scr(2)) * checked::divide(PixHeight, ScrHeight);
}

}  // namespace vk
