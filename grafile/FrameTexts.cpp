#include "grafile/FrameTexts.h"

#include <algorithm>
#include <cmath>
#include <limits>

#include "base/NumberText.h"
#include "base/Text.h"

namespace vk {
namespace {

constexpr FigureStyle kStyle;
constexpr double kLeastDistance = 1.1;  // of numbers above one another, in heights of a line

using Plain = std::function<Array<std::string>(double from, double to)>;

/// The powers of ten at the ends of decades; the ends of other intervals have exponents with decimals.
AxisText decades(double from, double to, int intervals, const std::string& title) {
  AxisText text{Array<std::string>(intervals), title};
  for (int k = 0; k <= intervals; ++k)
    text.labels[k] = "10^{" + generalText(static_cast<float>(from + k * (to - from) / intervals)) + "}";
  return text;
}

/// Every second, third, ... label alone, so that those left are at least so many ticks apart.
void thinOut(Array<std::string>& labels, double ticks) {
  const int every = std::max(1, static_cast<int>(std::ceil(ticks)));
  for (int k = 0; k <= labels.upper(); ++k) {
    if (k % every != 0) labels[k].clear();
  }
}

class Writing {
 public:
  Writing(GralCls& drawing, const Array<std::string>& labels) {
    for (int k = 0; k <= labels.upper(); ++k)
      widest = std::max(widest, drawing.GralTextExtent(kStyle.labelPoints, labels[k]).width);
    height = drawing.GralTextExtent(kStyle.labelPoints, "").height;
  }
  double widest = 0, height = 0;
};

AxisText axisTexts(GralCls& drawing, const PlotSide& side, int intervals, bool logarithmic, bool upright,
                   const std::string& title) {
  const double cm = std::abs(side.toCm - side.fromCm) / intervals;
  const auto plain = [&](double from, double to) {
    Array<std::string> labels;
    double longest = 0;
    drawing.Makescale(from, to, labels, intervals, false, longest, false);
    return labels;
  };
  AxisText text;
  if (logarithmic) {
    text = decades(side.from, side.to, intervals, title);
  } else {
    const double character = drawing.GralTextExtent(kStyle.labelPoints, "0").width;
    const double room = upright ? std::numeric_limits<double>::infinity() : cm / character;
    text = chooseLabels({side.from, side.to, static_cast<double>(intervals), room}, title, plain);
  }
  const Writing size(drawing, text.labels);
  if (upright) thinOut(text.labels, kLeastDistance * size.height / cm);
  if (logarithmic && !upright) thinOut(text.labels, (size.widest + kStyle.gap) / cm);
  return text;
}

double place(const PlotSide& side, int k, int intervals) {
  return side.fromCm + k * (side.toCm - side.fromCm) / intervals;
}

/// The size in which a title is not longer than some room.
double titlePoints(GralCls& drawing, const std::string& title, double room) {
  const double width = drawing.GralTextExtent(kStyle.titlePoints, title).width;
  return kStyle.titlePoints * std::min(1.0, room / std::max(width, room / 2));
}

bool isBlank(const std::string& text) {
  return trim(text).empty();
}

double heightOfTitle(GralCls& drawing, const std::string& title) {
  return isBlank(title) ? 0 : drawing.GralTextExtent(kStyle.titlePoints, title).height;
}

}  // namespace

FrameTexts frameTexts(GralCls& drawing, const PlotBox& box, const BoxAxes& axes) {
  FrameTexts texts;
  if (axes.numbersX) texts.x = axisTexts(drawing, box.x, axes.nx, axes.logarithmic.x, false, axes.titleX);
  texts.y = axisTexts(drawing, box.y, axes.ny, axes.logarithmic.y, true, axes.titleY);
  return texts;
}

void drawTexts(GralCls& drawing, const PlotBox& box, const FrameTexts& texts) {
  const auto write = [&](double x, double y, double share, int angle, double points,
                         const std::string& text) {
    if (!isBlank(text))
      drawing.GralWinPrintString(drawing.xLog2Scr(x), drawing.yLog2Scr(y), share, angle, points, 0, text);
  };
  const double left = std::min(box.x.fromCm, box.x.toCm), bottom = std::min(box.y.fromCm, box.y.toCm);
  const Writing ofX(drawing, texts.x.labels), ofY(drawing, texts.y.labels);
  const double below = bottom - kStyle.gap - ofX.height / 2;
  for (int k = 0; k <= texts.x.labels.upper(); ++k)
    write(place(box.x, k, texts.x.labels.upper()), below, 1, 0, kStyle.labelPoints, texts.x.labels[k]);
  for (int k = 0; k <= texts.y.labels.upper(); ++k)
    write(left - kStyle.gap, place(box.y, k, texts.y.labels.upper()), 2, 0, kStyle.labelPoints,
          texts.y.labels[k]);
  write((box.x.fromCm + box.x.toCm) / 2, below - (ofX.height + heightOfTitle(drawing, texts.x.title)) / 2, 1,
        0, titlePoints(drawing, texts.x.title, static_cast<double>(drawing.XrLog)), texts.x.title);
  write(left - 2 * kStyle.gap - ofY.widest - heightOfTitle(drawing, texts.y.title) / 2,
        (box.y.fromCm + box.y.toCm) / 2, 1, 90,
        titlePoints(drawing, texts.y.title, static_cast<double>(drawing.YtLog)), texts.y.title);
}

Margins roomFor(GralCls& drawing, const FrameTexts& texts) {
  const Writing ofX(drawing, texts.x.labels), ofY(drawing, texts.y.labels);
  Margins room{.left = 2 * kStyle.gap + ofY.widest + heightOfTitle(drawing, texts.y.title),
               .right = kStyle.gap,
               .bottom = kStyle.gap,
               .top = std::max(kStyle.gap, ofY.height / 2)};
  if (!isBlank(texts.y.title)) room.left += kStyle.gap;
  if (texts.x.labels.upper() >= 0) {
    room.bottom += kStyle.gap + ofX.height + heightOfTitle(drawing, texts.x.title);
    room.right += ofX.widest / 2;
  } else {
    room.bottom = std::max(room.bottom, ofY.height / 2);
  }
  return room;
}

}  // namespace vk
