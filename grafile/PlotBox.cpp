#include "grafile/PlotBox.h"

#include <algorithm>
#include <cmath>

#include "base/Rounding.h"
#include "gral/SavedDrawing.h"

namespace vk {
namespace {

constexpr double kMajorTick = 3, kMinorTick = 1.8;  // mm
constexpr double kTitleRise = 1;                    // cm above the box
constexpr double kTitlePoints = 20, kKeyPoints = 16;
constexpr double kSampleLength = 1.5, kTextGap = 0.3;  // cm
constexpr double kTintGrey = 209;

bool isRoundStep(double step) {
  const double leading = step / std::pow(10, std::floor(std::log10(step)));
  const auto near = [&](double digit) { return std::abs(leading - digit) < 1E-6; };
  return near(1) || near(2) || near(5) || near(10);
}

/// Into how many parts, at most five, an interval is divided by a round step; 1 for none.
int partsOf(double interval) {
  for (int parts = 5; parts > 1; --parts) {
    if (isRoundStep(interval / parts)) return parts;
  }
  return 1;
}

/// The user coordinate of the left or lower end of a side, and that of the other.
double nearEnd(const PlotSide& side) {
  return side.fromCm < side.toCm ? side.from : side.to;
}
double farEnd(const PlotSide& side) {
  return side.fromCm < side.toCm ? side.to : side.from;
}

/// Two opposite sides, by the procedure that draws an axis with so many intervals at a place.
template <class Axis>
void drawSides(const PlotSide& along, const PlotSide& across, int intervals, bool logarithmic, Axis axis) {
  if (intervals < 1) throw RuntimeError(kInvalidCall);
  const int parts = logarithmic ? 1 : partsOf((along.upper() - along.lower()) / intervals);
  for (const int inward : {1, -1}) {
    const double at = inward > 0 ? nearEnd(across) : farEnd(across);
    if (parts > 1) axis(at, intervals * parts, inward * kMinorTick);
    axis(at, intervals, inward * kMajorTick);
  }
}

}  // namespace

void drawFrame(GralCls& drawing, const PlotBox& box, int nx, int ny, LogAxes logarithmic) {
  drawSides(box.x, box.y, nx, logarithmic.x, [&](double at, int intervals, double ticks) {
    drawing.GralOaxis(box.x.lower(), box.x.upper(), at, intervals, ticks, logarithmic.x, false, "");
  });
  drawSides(box.y, box.x, ny, logarithmic.y, [&](double at, int intervals, double ticks) {
    drawing.GralVaxis(box.y.lower(), box.y.upper(), at, intervals, ticks, logarithmic.y, false, "");
  });
}

void drawTitle(GralCls& drawing, const PlotBox& box, const std::string& text) {
  const double middle = (box.x.fromCm + box.x.toCm) / 2;
  // A box as high as the page has no room above it.
  const double height =
      std::min(std::max(box.y.fromCm, box.y.toCm), static_cast<double>(drawing.YtLog) - 2 * kTitleRise) +
      kTitleRise;
  drawing.GralWinPrintString(drawing.xLog2Scr(middle), drawing.yLog2Scr(height), 1, 0, kTitlePoints, 0, text);
}

void drawKey(GralCls& drawing, double x, double y, bool withLine, const std::string& text) {
  const double begin = drawing.xUsr2Log(x);
  const auto behind = [&](double cm) { return drawing.xLog2Usr(begin + cm); };
  if (withLine) {
    Array<double> ofX(2), ofY(2);
    ofX[1] = x;
    ofX[2] = behind(kSampleLength);
    ofY[1] = ofY[2] = y;
    drawing.GralDraw(ofX, ofY, 2);
  }
  if (drawing.GralMarkDim > 0) drawing.GralMark(behind(kSampleLength / 2), y);
  const SavedDrawing saved(*drawing.GralDev);
  drawing.GralColor(kBlack);  // samples may be pale
  drawing.GralWPrint(behind(kSampleLength + kTextGap), y, 0, 0, kKeyPoints, text);
}

double keyWidth(GralCls& drawing, const std::string& text) {
  return kSampleLength + kTextGap + drawing.GralTextExtent(kKeyPoints, text).width;
}

Colour lightTint(Colour colour) {
  const double grey = 0.299 * colour.red() + 0.587 * colour.green() + 0.114 * colour.blue();
  const double share = std::min(1.0, (255 - kTintGrey) / (255 - std::min(grey, kTintGrey)));
  const auto tinted = [share](int channel) { return toInt32(255 - share * (255 - channel)); };
  return Colour::fromChannels(tinted(colour.red()), tinted(colour.green()), tinted(colour.blue()));
}

}  // namespace vk
