#include "docs/gallery/Sheets.h"

#include <cmath>
#include <functional>
#include <numbers>
#include <string>

#include "base/NumberText.h"

namespace vk {

void beginSheet(GralCls& drawing, const std::string& title) {
  drawing.GralXMap(0, drawing.XrLog, 0, drawing.XrLog);
  drawing.GralYMap(0, drawing.YtLog, 0, drawing.YtLog);
  drawing.GralWPrint(drawing.XrLog / 2, drawing.YtLog - 1, 1, 0, kTitlePoints, title);
}

namespace {

constexpr Colour kRed = Colour::fromRgb(0xC00000), kGreen = Colour::fromRgb(0x008000),
                 kBlue = Colour::fromRgb(0x0000C0), kGrey = Colour::fromRgb(0x909090);

Array<double> valuesOf(int count, const std::function<double(int)>& value) {
  Array<double> values(count);
  for (int i = 1; i <= count; ++i) values[i] = value(i);
  return values;
}

/// A function joined from x1 to x2.
void drawFunction(GralCls& drawing, double x1, double x2, const std::function<double(double)>& f) {
  constexpr int kPoints = 300;
  const auto x = [&](int i) { return x1 + (x2 - x1) * (i - 1) / (kPoints - 1); };
  drawing.GralDraw(valuesOf(kPoints, x), valuesOf(kPoints, [&](int i) { return f(x(i)); }), kPoints);
}

// ---- Pens and dashes

void drawPens(GralCls& drawing) {
  beginSheet(drawing, "Pens and dashes");
  const char* names[] = {"solid", "dash", "dot", "dash-dot", "dash-dot-dot"};
  const double widths[] = {1, 5, 10, 20};
  for (int itra = 1; itra <= 5; ++itra) {
    const double y = static_cast<double>(drawing.YtLog - 3) - 3.2 * (itra - 1);
    drawing.GralWPrint(1, y - 0.6, 0, 0, kTextPoints, names[itra - 1]);
    for (int w = 0; w < 4; ++w) {
      drawing.GralPen(widths[w], itra);
      drawing.GralDraw(valuesOf(2, [](int i) { return i == 1 ? 4.5 : 15; }),
                       valuesOf(2, [&](int) { return y - 0.6 * w; }), 2);
    }
  }
  drawing.GralPen(1, 1);
  drawing.GralWPrint(22, drawing.YtLog - 3, 1, 0, kTextPoints, "1000 short segments keep the rhythm");
  for (int itra = 2; itra <= 5; ++itra) {
    drawing.GralPen(5, itra);
    const double radius = 1.2 * itra;
    const auto angle = [](int i) { return 2 * std::numbers::pi * (i - 1) / 1000; };
    drawing.GralDraw(valuesOf(1001, [&](int i) { return 22 + radius * std::cos(angle(i)); }),
                     valuesOf(1001, [&](int i) { return 9.5 + radius * std::sin(angle(i)); }), 1001);
  }
}

// ---- Marks

void drawMarks(GralCls& drawing) {
  beginSheet(drawing, "The ten marks");
  const Colour colors[] = {kBlack, kRed, kGreen, kBlue};
  const double sizes[] = {1, 1.5, 2.5, 4};
  for (int type = 1; type <= 10; ++type) {
    const double x = 4.5 + 2.3 * (type - 1);
    drawing.GralWPrint(x, drawing.YtLog - 3, 1, 0, kTextPoints, generalText(type));
    for (int row = 0; row < 4; ++row) {
      drawing.GralColor(colors[row]);
      drawing.GralMakeMark(sizes[row], type);
      drawing.GralMark(x, 14.5 - 2.5 * row);
    }
    drawing.GralColor(kBlack);
  }
  for (int row = 0; row < 4; ++row) {
    drawing.GralWPrint(0.8, 14.5 - 2.5 * row, 0, 0, kTextPoints, generalText(sizes[row]) + " mm");
  }
  drawing.GralPen(5, 1);
  drawing.GralWPrint(0.8, 3, 0, 0, kTextPoints, "wide pen");
  for (int type = 1; type <= 10; ++type) {
    drawing.GralMakeMark(4, type);
    drawing.GralMark(4.5 + 2.3 * (type - 1), 3);
  }
}

// ---- Axes

void drawLinearAxes(GralCls& drawing) {
  beginSheet(drawing, "Linear axes on all sides");
  drawing.GralXMap(5, 13, 0, 1);
  drawing.GralYMap(4, 16, -1, 1);
  drawing.GralOaxis(0, 1, -1, 4, 3, false, true, "time (s)");
  drawing.GralOaxis(0, 1, 1, 4, -3, false, true, "the same above");
  drawing.GralVaxis(-1, 1, 0, 4, 3, false, true, "signal (mV)");
  drawing.GralVaxis(-1, 1, 1, 4, -3, false, true, "the same at the right");
  drawing.GralXMap(19.5, 26.5, 1000, 0);
  drawing.GralYMap(4, 16, 0, 0.006);
  drawing.GralOaxis(1000, 0, 0, 5, 2, false, true, "reversed, small labels");
  drawing.GralOaxis(1000, 0, 0.006, 10, -5, false, false, "");
  drawing.GralVaxis(0, 0.006, 1000, 6, 2, false, true, "10^{-3} units");
  drawing.GralVaxis(0, 0.006, 0, 3, -2, false, false, "bare, with a title");
}

void drawLogarithmicAxes(GralCls& drawing) {
  beginSheet(drawing, "Logarithmic axes on all sides");
  drawing.GralXMap(5, 24, -2, 3);
  drawing.GralYMap(4, 16, 0, 3);
  drawing.GralOaxis(-2, 3, 0, 5, 3, true, true, "frequency \\\\n (Hz)");
  drawing.GralOaxis(-2, 3, 3, 5, -3, true, true, "the same above");
  drawing.GralVaxis(0, 3, -2, 3, 3, true, true, "power (W m^{-2})");
  drawing.GralVaxis(0, 3, 3, 3, -3, true, true, "the same at the right");
  drawing.GralClip(-2, 0, 3, 3);
  drawing.GralPen(5, 1);
  drawing.GralColor(kBlue);
  drawFunction(drawing, -2, 3, [](double x) { return 2.5 - std::log10(1 + std::pow(10, 2 * x) / 100); });
}

// ---- Text

void drawMarkup(GralCls& drawing) {
  beginSheet(drawing, "Texts at all angles, and their markup");
  drawing.GralColor(kGrey);
  drawing.GralMakeMark(1, 5);
  const double xc = 7.5, yc = 10;
  for (int angle = 0; angle < 360; angle += 30) {
    drawing.GralColor(kBlack);
    const double a = angle * std::numbers::pi / 180;
    drawing.GralWPrint(xc + 2 * std::cos(a), yc + 2 * std::sin(a), 0, angle, kTextPoints,
                       "x_{max}^2 at " + generalText(angle) + "\\\\\xB0");
  }
  drawing.GralMark(xc, yc);
  const char* names[] = {"begins here", "centred here", "ends here"};
  for (int centre = 0; centre < 3; ++centre) {
    for (int turn = 0; turn < 3; ++turn) {
      const double x = 17 + 4 * turn, y = 16.5 - 1.7 * centre;
      drawing.GralColor(kRed);
      drawing.GralLine(x, y - 0.5, x, y + 0.5);
      drawing.GralLine(x - 0.5, y, x + 0.5, y);
      drawing.GralColor(kBlack);
      drawing.GralWPrint(x, y, centre, 15 * turn, kTextPoints, names[centre]);
    }
  }
  // A code above 128 takes the width of the letter before it, so that some stand close to their neighbours.
  const char* samples[] = {"10^{-2}   E = m c^2   H_2O   x_i^{n+1}",
                           "\\\\a \\\\b \\\\g   \\\\{ABGDEZHQ}   \\\\{pqrstufcyw}",
                           "\\\\S x_i = \\\\m   a\\\\\xA3 b\\\\\xB3 c\\\\\xB9 d\\\\\xBB e   \\\\{W\xA5}",
                           "\\\\{D}x^2 = 4 \\\\{p} \\\\{ewt}_0   \\\\q = 45\xB0",
                           "accented letters: perch\xE9 cos\xEC virt\xF9",
                           "one \\ backslash stays"};
  double y = 9;
  for (const char* sample : samples) {
    drawing.GralWPrint(16, y, 0, 0, kTitlePoints * 0.8, sample);
    y -= 1.3;
  }
}

// ---- Curves

void drawCurves(GralCls& drawing) {
  beginSheet(drawing, "Curves: straight, smooth, dashed");
  drawing.GralXMap(4, 26, 0, 10);
  drawing.GralYMap(3.5, 17, -2, 8);
  drawing.GralOaxis(0, 10, -2, 10, 3, false, true, "x");
  drawing.GralVaxis(-2, 8, 0, 5, 3, false, true, "y");
  const double ys[] = {0, 3, 1, 4, 2.5, 6, 5.5, 5.6, 3, 7};
  const Array<double> x = valuesOf(10, [](int i) { return 0.5 + (i - 1); });
  const Array<double> y = valuesOf(10, [&](int i) { return ys[i - 1]; });
  drawing.GralColor(kGrey);
  drawing.GralPen(1, 2);
  drawing.GralDraw(x, y, 10);
  drawing.GralColor(kBlue);
  drawing.GralPen(5, 1);
  drawing.GralCurve(x, y, 10);
  drawing.GralPen(1, 1);
  drawing.GralColor(kBlack);
  for (int i = 1; i <= 10; ++i) drawing.GralMark(x[i], y[i]);
  drawing.GralColor(kRed);
  for (int itra = 2; itra <= 5; ++itra) {
    drawing.GralPen(4, itra);
    drawFunction(drawing, 0, 10,
                 [&](double t) { return std::sin(t) * std::exp(-t / 8) + 0.4 * (itra - 2) - 1; });
  }
}

// ---- Data

void drawData(GralCls& drawing) {
  beginSheet(drawing, "Data with error bars in y, and in both");
  drawing.GralXMap(4, 14, 0, 10);
  drawing.GralYMap(4, 16.5, 0, 5);
  drawing.GralOaxis(0, 10, 0, 5, 3, false, true, "x");
  drawing.GralVaxis(0, 5, 0, 5, 3, false, true, "y");
  const auto model = [](double x) { return 4 * std::exp(-x / 4) + 0.3; };
  const Array<double> x = valuesOf(19, [](int i) { return i / 2.0; });
  const Array<double> y = valuesOf(19, [&](int i) { return model(i / 2.0) + 0.15 * std::sin(7.0 * i); });
  const Array<double> ey = valuesOf(19, [](int i) { return 0.02 + 0.02 * i; });
  drawing.GralColor(kBlue);
  drawFunction(drawing, 0, 10, model);
  drawing.GralColor(kBlack);
  drawing.PlotData(x, {}, y, ey, 19, false, false, false);
  drawing.GralXMap(18.5, 27.5, -1, 1);
  drawing.GralYMap(4, 16.5, -1, 1);
  drawing.GralOaxis(-1, 1, -1, 2, 3, true, true, "x");
  drawing.GralVaxis(-1, 1, -1, 2, 3, true, true, "y");
  drawing.GralClip(-1, -1, 1, 1);
  const auto along = [](int i) { return 0.12 * std::pow(1.7, i); };
  const auto power = [&](int i) { return 1.5 * std::pow(along(i), -0.8); };
  drawing.GralMakeMark(1.5, 8);
  drawing.GralColor(kRed);
  drawing.PlotData(valuesOf(8, along), valuesOf(8, [&](int i) { return (0.05 + 0.04 * i) * along(i); }),
                   valuesOf(8, power), valuesOf(8, [&](int i) { return (0.1 + 0.05 * i) * power(i); }), 8,
                   true, true, true);
}

// ---- Boxes, fillings and clipping

void drawAreas(GralCls& drawing) {
  beginSheet(drawing, "Boxes, fillings and clipping");
  for (int style = 0; style < 8; ++style) {
    const double x = 2.5 + 3.3 * style;
    drawing.GralFillStyle(style);
    drawing.GralFillColor(style % 2 == 0 ? kGreen : kBlue);
    drawing.GralDev->Circle(drawing.xUsr2Scr(x), drawing.yUsr2Scr(15.5), 600);
    drawing.GralWPrint(x, 13.5, 1, 0, kTextPoints, generalText(style));
  }
  drawing.GralUseTra = false;
  for (int itra = 1; itra <= 5; ++itra) {
    drawing.GralPen(itra, itra);
    const double x = 1.5 + 1.2 * itra, y = 1.5 + 1.2 * itra;
    drawing.GralBox(x, y, x + 5, y + 4, 0);
  }
  drawing.GralUseTra = true;
  drawing.GralPen(1, 1);
  drawing.GralBox(15, 2, 27, 12, 0);
  drawing.GralClip(15, 2, 27, 12);
  drawing.GralPen(3, 1);
  for (int i = 0; i < 24; ++i) {
    drawing.GralColor(i % 3 == 0 ? kRed : i % 3 == 1 ? kGreen : kBlue);
    const double a = i * std::numbers::pi / 12;
    drawing.GralLine(21, 7, 21 + 12 * std::cos(a), 7 + 12 * std::sin(a));
  }
  drawing.GralColor(kBlack);
  drawing.GralMakeMark(20, 5);
  drawing.GralMark(21, 12);
}

}  // namespace

const std::vector<Sheet>& gallerySheets() {
  static const std::vector<Sheet> sheets = [] {
    std::vector<Sheet> all{
        {"pens", "LANDSCAPE", drawPens},
        {"marks", "LANDSCAPE", drawMarks},
        {"axes_linear", "LANDSCAPE", drawLinearAxes},
        {"axes_logarithmic", "LANDSCAPE", drawLogarithmicAxes},
        {"markup", "LANDSCAPE", drawMarkup},
        {"curves", "LANDSCAPE", drawCurves},
        {"data", "LANDSCAPE", drawData},
        {"areas", "LANDSCAPE", drawAreas},
    };
    all.insert(all.end(), surfaceSheets().begin(), surfaceSheets().end());
    return all;
  }();
  return sheets;
}

}  // namespace vk
