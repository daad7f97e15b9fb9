#include <cmath>
#include <functional>
#include <numbers>
#include <string>

#include "base/NumberText.h"
#include "docs/gallery/Sheets.h"
#include "gral/Shade.h"

namespace vk {
namespace {

using Height = std::function<double(double x, double y)>;

/// A function on n x n points of the square from -1 to 1.
Array2<float> gridOf(int n, const Height& height) {
  Array2<float> z(n, n);
  const auto at = [n](int i) { return -1 + 2.0 * (i - 1) / (n - 1); };
  for (int j = 1; j <= n; ++j) {
    for (int i = 1; i <= n; ++i) z(i, j) = static_cast<float>(height(at(i), at(j)));
  }
  return z;
}

/// n values from `first` in equal steps.
Array<float> stepsOf(int n, double first, double step) {
  Array<float> values(n);
  for (int k = 1; k <= n; ++k) values[k] = static_cast<float>(first + step * (k - 1));
  return values;
}

/// Hues of n levels, from blue up to red.
double hueOf(int k, int n) {
  return 0.66 * (n - k) / std::max(1, n - 1);
}

Array2<float> bandColors(int n, double brightness) {
  Array2<float> hsb(n, 3);
  for (int c = 1; c <= n; ++c) {
    hsb(c, 1) = static_cast<float>(hueOf(c, n));
    hsb(c, 2) = 0.9F;
    hsb(c, 3) = static_cast<float>(brightness);
  }
  return hsb;
}

Array<float> tripleOf(double h, double s, double b) {
  Array<float> triple(3);
  triple[1] = static_cast<float>(h);
  triple[2] = static_cast<float>(s);
  triple[3] = static_cast<float>(b);
  return triple;
}

double ripple(double x, double y) {
  const double r = 9 * std::hypot(x, y);
  return 1.2 + 3.6 * (r < 1E-9 ? 1 : std::sin(r) / r);
}

double hills(double x, double y) {
  const auto hill = [&](double cx, double cy, double width) {
    return std::exp(-((x - cx) * (x - cx) + (y - cy) * (y - cy)) / (width * width));
  };
  return 0.4 + 4.2 * hill(-0.35, -0.3, 0.4) + 2.8 * hill(0.5, 0.35, 0.3) + 1.8 * hill(-0.3, 0.6, 0.25);
}

// ---- Contours

void contourPlot(GralCls& drawing, double left, double bottom, double size, const std::string& title,
                 const Height& f, const Array<float>& levels) {
  constexpr int kPoints = 19;
  drawing.GralXMap(left, left + size, -1, 1);
  drawing.GralYMap(bottom, bottom + size, -1, 1);
  drawing.GralOaxis(-1, 1, -1, 4, 2, false, true, title);
  drawing.GralOaxis(-1, 1, 1, 4, -2, false, false, "");
  drawing.GralVaxis(-1, 1, -1, 4, 2, false, true, "");
  drawing.GralVaxis(-1, 1, 1, 4, -2, false, false, "");
  Array<Colour> colors(levels.upper());
  for (int k = 1; k <= levels.upper(); ++k) colors[k] = HsbToRgb(hueOf(k, levels.upper()), 1, 0.4);
  drawing.GralContour(-1, 1, -1, 1, gridOf(kPoints, f), kPoints, kPoints, levels, colors, levels.upper());
}

void drawContours(GralCls& drawing) {
  beginSheet(drawing, "Contours of three functions");
  drawing.GralPen(3, 1);
  contourPlot(
      drawing, 2.2, 6.5, 7, "x^2 + y^2", [](double x, double y) { return x * x + y * y; },
      stepsOf(9, 0.15, 0.15));
  contourPlot(
      drawing, 11.4, 6.5, 7, "x y", [](double x, double y) { return x * y; }, stepsOf(11, -0.75, 0.15));
  contourPlot(drawing, 20.6, 6.5, 7, "three hills", hills, stepsOf(10, 0.6, 0.43));
}

// ---- Areas filled up to a colour

void drawFloods(GralCls& drawing) {
  beginSheet(drawing, "Areas filled up to a colour");
  drawing.GralPen(3, 1);
  const int styles[] = {kFillSolid, kFillVertical, kFillSolid};
  const char* names[] = {"solid", "hatched", "up to a clip region"};
  const Colour kOrange = Colour::fromRgb(0xFFC080), kPaleGreen = Colour::fromRgb(0xC0FF80),
               kDarkBlue = Colour::fromRgb(0x0000C0), kLightBlue = Colour::fromRgb(0x80C0FF);
  const Colour colors[] = {kOrange, kDarkBlue, kLightBlue};
  for (int n = 0; n < 3; ++n) {
    const double x = 6 + 8.4 * n, y = 10;
    Array<double> px(91), py(91);
    for (int i = 1; i <= 91; ++i) {
      const double a = 2 * std::numbers::pi * (i - 1) / 90;
      const double r = 1.8 + 0.5 * std::cos((3 + n) * a);
      px[i] = x + r * std::cos(a);
      py[i] = y + r * std::sin(a);
    }
    drawing.GralDraw(px, py, 91);
    drawing.GralBox(x - 0.5, y - 0.5, x + 0.5, y + 0.5, 0);
    drawing.GralWPrint(x, y - 3, 1, 0, kTextPoints, names[n]);
    if (n == 2) drawing.GralClip(x - 3, y - 1, x + 3, y + 1);
    drawing.GralFillStyle(styles[n]);
    drawing.GralFillColor(colors[n]);
    drawing.GralFill(n < 2 ? x + 1 : x + 2.6, y, kBlack);
    if (n > 0) continue;
    drawing.GralFillColor(kPaleGreen);
    drawing.GralFill(x, y, kBlack);
  }
}

// ---- Surfaces

struct View {
  double x, y;  ///< centre of the floor
  double theta, phi;
};

constexpr double kSide = 10, kTop = 5;

/// The box of a view, with or without walls, and ticks without texts.
void drawBox(GralCls& drawing, const View& view, bool walls) {
  const auto f = [](double value) { return static_cast<float>(value); };
  const Array<float> T = stepsOf(5, 0, kSide / 4), Tz = stepsOf(3, 0, kTop / 2);
  Array<std::string> Sx(5), Sy(5), Sz(5);
  drawing.Frame3D(f(view.x), f(view.y), f(view.theta), f(view.phi), f(kSide), f(kSide), f(kTop), T, T, Tz, 5,
                  5, 3, Sx, Sy, Sz, 5, 5, 3, false, walls, walls, tripleOf(0.15, 0.35, 0.5));
}

void drawSurface(GralCls& drawing, const View& view, const Array2<float>& z, bool gray, bool color,
                 const Array<float>& levels = Array<float>(0), const Array2<float>& colors = {}) {
  const auto f = [](double value) { return static_cast<float>(value); };
  drawing.Surf3D(f(view.x), f(view.y), f(view.theta), f(view.phi), f(kSide), f(kSide), f(kTop), z, z.upper1(),
                 z.upper2(), gray, color, tripleOf(0.58, 0.6, 0.5), levels, levels.upper(), colors,
                 std::max(0, colors.upper1()));
}

/// From these angles what is in front is drawn last.
constexpr View kLeft{7.2, 8, 75, 125}, kRight{21.5, 8, 252, 50};

void drawShadedSurfaces(GralCls& drawing) {
  beginSheet(drawing, "A shaded surface, gray and in a colour");
  drawBox(drawing, kLeft, false);
  drawSurface(drawing, kLeft, gridOf(17, ripple), true, false);
  drawBox(drawing, kRight, true);
  drawSurface(drawing, kRight, gridOf(17, ripple), true, true);
}

void drawBandedSurfaces(GralCls& drawing) {
  beginSheet(drawing, "A surface with coloured bands, and the same with shades");
  const Array<float> levels = stepsOf(8, 0.6, 0.5);
  drawBox(drawing, kLeft, false);
  drawSurface(drawing, kLeft, gridOf(15, hills), false, false, levels, bandColors(9, 0.5));
  drawBox(drawing, kRight, false);
  drawSurface(drawing, kRight, gridOf(15, hills), true, false, levels, bandColors(9, 0.5));
}

void drawLinedSurfaces(GralCls& drawing) {
  beginSheet(drawing, "A surface with coloured level lines, on wires and on shades");
  const Array<float> levels = stepsOf(8, 0.6, 0.5);
  drawing.GralColor(Colour::fromRgb(0xA0A0A0));
  drawSurface(drawing, kLeft, gridOf(15, hills), false, false, levels, bandColors(8, 0.4));
  drawSurface(drawing, kRight, gridOf(15, hills), true, false, levels, bandColors(8, 0.4));
}

void drawMeshes(GralCls& drawing) {
  beginSheet(drawing, "A surface of wires from two sides");
  drawBox(drawing, kLeft, false);
  drawSurface(drawing, kLeft, gridOf(19, ripple), false, false);
  drawSurface(drawing, kRight, gridOf(19, ripple), false, false);
}

void drawColumns(GralCls& drawing) {
  beginSheet(drawing, "Columns, shaded and plain");
  const auto f = [](double value) { return static_cast<float>(value); };
  const Array2<float> z = gridOf(12, hills);
  for (const View& view : {kLeft, kRight}) {
    drawing.GralLego3d(f(view.x), f(view.y), f(view.theta), f(view.phi), f(kSide), f(kSide), f(kTop), z, 12,
                       12, view.x == kLeft.x, false);
  }
}

void drawFrames(GralCls& drawing) {
  beginSheet(drawing, "Frames with labels between ticks and at ticks");
  const auto f = [](double value) { return static_cast<float>(value); };
  const auto labels = [](std::initializer_list<const char*> texts) {
    Array<std::string> result(static_cast<int>(texts.size()) - 1);
    int n = 0;
    for (const char* text : texts) result[n++] = text;
    return result;
  };
  // Smaller than the other boxes, and turned so that the labels stand clear of the walls.
  const double side = 8, top = 4;
  const Array<float> T = stepsOf(5, 0, side / 4), Tz = stepsOf(3, 0, top / 2);
  Array<std::string> months = labels({"month", "Jan", "Feb", "Mar", "Apr"});
  Array<std::string> sites = labels({"site", "A", "B", "C", "D"});
  Array<std::string> halves = labels({"", "I", "II"});
  const View a{7, 8, 117, 145}, b{22, 8, 295, 40};
  drawing.GralFrame3d(f(a.x), f(a.y), f(a.theta), f(a.phi), f(side), f(side), f(top), T, T, Tz, 5, 5, 3,
                      months, sites, halves, 4, 4, 2, false);
  Array<std::string> x = labels({"x (cm)", "0", "2", "4", "6", "8"});
  Array<std::string> y = labels({"y (cm)", "0", "2", "4", "6", "8"});
  Array<std::string> height = labels({"z (cm)", "0", "2", "4"});
  drawing.Frame3D(f(b.x), f(b.y), f(b.theta), f(b.phi), f(side), f(side), f(top), T, T, Tz, 5, 5, 3, x, y,
                  height, 5, 5, 3, false, true, true, tripleOf(0.15, 0.35, 0.5));
}

}  // namespace

const std::vector<Sheet>& surfaceSheets() {
  static const std::vector<Sheet> sheets{
      {"floods", "LANDSCAPE", drawFloods},
      {"contours", "LANDSCAPE", drawContours},
      {"surface_shaded", "LANDSCAPE", drawShadedSurfaces},
      {"surface_bands", "LANDSCAPE", drawBandedSurfaces},
      {"surface_levels", "LANDSCAPE", drawLinedSurfaces},
      {"surface_mesh", "LANDSCAPE", drawMeshes},
      {"columns", "LANDSCAPE", drawColumns},
      {"frames", "LANDSCAPE", drawFrames},
  };
  return sheets;
}

}  // namespace vk
