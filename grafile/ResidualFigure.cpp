#include "grafile/ResidualFigure.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <numbers>

#include "base/Guard.h"
#include "base/NumberMasks.h"
#include "base/NumberText.h"
#include "base/Text.h"
#include "grafile/NiceLimits.h"
#include "gral/Plotting.h"

namespace vk {
namespace {

constexpr const char* kTitleY = "(Mis.-Calc.) / Errore";
constexpr const char* kTitleCount = "Punti";
constexpr const char* kNothing = "Scarti NON Calcolabili";
constexpr double kFontSize = 10;

// Centimetres.
constexpr double kLeftMargin = 1.7, kRightMargin = 0.5, kBottomMargin = 1.7, kTopMargin = 0.4, kGap = 0.7;
constexpr double kHistogramShare = 0.28;  // of the width of both boxes
constexpr double kTick = 1.8;             // mm

constexpr double kLeastRange = 3;
constexpr double kFar = 2;
constexpr std::size_t kManyPoints = 1000;
constexpr int kCurveSegments = 40;  // on either side
constexpr double kCurveEnd = 4;
constexpr int kHollow = 5, kFull = 10;  // circles
constexpr int kThin = 1, kThick = 4;    // tenths of a millimetre
constexpr int kFullLine = 1, kDashedLine = 2, kDottedLine = 3;
const Colour kBarColour = Colour::fromRgb(0xD0D0D0), kLineColour = Colour::fromRgb(0x606060),
             kDenseColour = Colour::fromRgb(0xA0A0A0);

/// An axis whose ends are round numbers.
struct RoundAxis {
  RoundAxis(double from, double to) : low(from), high(to) {
    guard([&] { NiceLimits(low, high, divisions); });
  }
  double low, high;
  Int16 divisions = 1;
};

double farthest(const std::vector<double>& pulls) {
  double most = kLeastRange;
  for (const double pull : pulls) most = std::max(most, std::abs(pull));
  return most;
}

RoundAxis axisOfX(const std::vector<double>& x) {
  auto [low, high] = std::ranges::minmax(x);
  openRange(low, high);
  return {low, high};
}

/// Of the circles, in millimetres: all of them together cover no more than a few hundred do.
double markRadius(std::size_t count) {
  constexpr double kLargest = 0.9, kSmallest = 0.12, kFewPoints = 300;
  return std::clamp(kLargest * std::sqrt(kFewPoints / static_cast<double>(count)), kSmallest, kLargest);
}

/// How many pulls fall into the parts of their axis.
std::vector<int> histogram(const std::vector<double>& pulls, const RoundAxis& y) {
  const int parts = (pulls.size() > kManyPoints ? 4 : 2) * y.divisions;
  std::vector<int> counts(static_cast<std::size_t>(parts));
  for (const double pull : pulls) {
    const double place = (pull - y.low) / (y.high - y.low) * parts;
    ++counts.at(static_cast<std::size_t>(std::clamp(place, 0.0, parts - 1.0)));
  }
  return counts;
}

class ResidualDrawing {
 public:
  ResidualDrawing(const ResidualFigure& figure, GralCls& drawing, const PageArea& area)
      : figure_(figure), drawing_(drawing), area_(area), y_(-farthest(figure.pulls), farthest(figure.pulls)) {
    area_.left += kLeftMargin;
    area_.right -= kRightMargin;
    area_.bottom += kBottomMargin;
    area_.top -= kTopMargin;
    split_ = area_.right - kHistogramShare * (area_.right - area_.left);
  }

  void draw() {
    drawPoints();
    drawHistogram();
  }

 private:
  void drawPoints();
  void drawHistogram();
  void drawBars(const std::vector<int>& counts);
  void drawNormalCurve(double scale);
  void box(const RoundAxis& x, const std::string& titleX, const std::string& titleY);
  void levels(const RoundAxis& x);
  void join(std::span<const double> x, std::span<const double> y);

  const ResidualFigure& figure_;
  GralCls& drawing_;
  PageArea area_;
  RoundAxis y_;
  double split_;  // between the two boxes
};

void ResidualDrawing::drawPoints() {
  const RoundAxis x = axisOfX(figure_.x);
  drawing_.GralXMap(area_.left, split_ - kGap, x.low, x.high);
  drawing_.GralYMap(area_.bottom, area_.top, y_.low, y_.high);
  const std::size_t count = figure_.x.size();
  const bool dense = count > kManyPoints;  // marks would cover the lines
  if (dense) {
    drawing_.GralColor(kDenseColour);
  } else {
    levels(x);
  }
  const double radius = markRadius(count);
  for (std::size_t i = 0; i < count; ++i) {
    drawing_.GralMakeMark(radius, std::abs(figure_.pulls[i]) > kFar ? kFull : kHollow);
    drawing_.GralMark(figure_.x[i], figure_.pulls[i]);
  }
  if (dense) levels(x);
  box(x, figure_.titleX, kTitleY);
}

void ResidualDrawing::drawHistogram() {
  const std::vector<int> counts = histogram(figure_.pulls, y_);
  const double width = (y_.high - y_.low) / static_cast<double>(counts.size());
  const double top = static_cast<double>(figure_.pulls.size()) * width / std::sqrt(2 * std::numbers::pi);
  const RoundAxis x(0, std::max<double>(top, *std::ranges::max_element(counts)));
  drawing_.GralXMap(split_, area_.right, x.low, x.high);
  drawBars(counts);
  levels(x);
  drawNormalCurve(top);
  box(x, kTitleCount, "");
}

void ResidualDrawing::drawBars(const std::vector<int>& counts) {
  const double width = (y_.high - y_.low) / static_cast<double>(counts.size());
  double low = y_.low;
  for (const int count : counts) {
    const double left = drawing_.xUsr2Scr(0), right = drawing_.xUsr2Scr(count);
    const double bottom = drawing_.yUsr2Scr(low), top = drawing_.yUsr2Scr(low + width);
    drawing_.GralDev->FilledBox(left, top, right, bottom, kBarColour);
    if (count > 0) drawing_.GralDev->Box(left, top, right, bottom);
    low += width;
  }
}

/// The normal distribution with `scale` in its middle.
void ResidualDrawing::drawNormalCurve(double scale) {
  const double end = std::min(kCurveEnd, y_.high);
  std::vector<double> x, y;
  for (int i = -kCurveSegments; i <= kCurveSegments; ++i) {
    y.push_back(end * i / kCurveSegments);
    x.push_back(scale * std::exp(-y.back() * y.back() / 2));
  }
  drawing_.GralPen(kThick, kFullLine);
  join(x, y);
  drawing_.GralPen(kThin, kFullLine);
}

/// Axes on all sides, those at the top and at the right without labels.
void ResidualDrawing::box(const RoundAxis& x, const std::string& titleX, const std::string& titleY) {
  const bool labelled = !titleY.empty();
  drawing_.GralOaxis(x.low, x.high, y_.low, x.divisions, kTick, false, true, titleX);
  drawing_.GralOaxis(x.low, x.high, y_.high, x.divisions, -kTick, false, false, "");
  drawing_.GralVaxis(y_.low, y_.high, x.low, y_.divisions, kTick, false, labelled, titleY);
  drawing_.GralVaxis(y_.low, y_.high, x.high, y_.divisions, -kTick, false, false, "");
}

/// The line of zero, and those at one and two errors on both sides.
void ResidualDrawing::levels(const RoundAxis& x) {
  const std::array ends{x.low, x.high};
  drawing_.GralColor(kLineColour);
  for (const int level : {-2, -1, 0, 1, 2}) {
    drawing_.GralPen(kThin, level == 0 ? kFullLine : std::abs(level) == 1 ? kDashedLine : kDottedLine);
    join(ends, std::array<double, 2>{1.0 * level, 1.0 * level});
  }
  drawing_.GralPen(kThin, kFullLine);
  drawing_.GralColor(kBlack);
}

void ResidualDrawing::join(std::span<const double> x, std::span<const double> y) {
  const int count = static_cast<int>(x.size());
  Array<double> ofX(count), ofY(count);
  std::ranges::copy(x, ofX.span(1, count).begin());
  std::ranges::copy(y, ofY.span(1, count).begin());
  drawing_.GralDraw(ofX, ofY, count);
}

std::string shortNumber(double value) {
  return generalText(static_cast<float>(value));
}

}  // namespace

ResidualFigure::ResidualFigure(std::string titleOfX, std::span<const double> places,
                               std::span<const double> residuals)
    : titleX(std::move(titleOfX)) {
  for (std::size_t i = 0; i < residuals.size(); ++i) {
    if (!std::isfinite(residuals[i])) continue;
    x.push_back(places[i]);
    pulls.push_back(residuals[i]);
  }
  missing = static_cast<int>(places.size() - x.size());
}

std::string describe(const ResidualFigure& figure) {
  if (figure.x.empty()) return kNothing;
  const std::vector<double>& pulls = figure.pulls;
  const auto size = [](double pull) { return std::abs(pull); };
  const auto beyond = std::ranges::count_if(pulls, [&](double pull) { return size(pull) > kFar; });
  const auto largest = std::ranges::max_element(pulls, {}, size);
  const double place = figure.x[static_cast<std::size_t>(largest - pulls.begin())];
  const auto count = static_cast<int>(pulls.size());
  std::string text = "Scarti divisi per i loro errori: " + generalText(count) +
                     (count == 1 ? " punto, " : " punti, ") + generalText(static_cast<int>(beyond)) +
                     " oltre 2, il maggiore " + trim(FormatMask(*largest, "#####.##")) +
                     " a x = " + shortNumber(place);
  if (figure.missing > 0) text += ", " + generalText(figure.missing) + " NON calcolabili";
  return text;
}

void drawResiduals(const ResidualFigure& figure, GralCls& drawing, const PageArea& area) {
  guard([&] {
    if (!figure.x.empty()) return ResidualDrawing(figure, drawing, area).draw();
    drawing.GralWPrint((area.left + area.right) / 2, (area.bottom + area.top) / 2, 1, 0, kFontSize, kNothing);
  });
}

}  // namespace vk
