// Unit GralCls: axes with ticks and labels.

#include <algorithm>
#include <cmath>
#include <limits>

#include "base/CheckedMath.h"
#include "base/Length.h"
#include "base/NumberText.h"
#include "base/Rounding.h"
#include "base/Text.h"
#include "gral/AxisLabels.h"
#include "gral/Plotting.h"
#include "gral/ScaleLabels.h"

namespace vk {
namespace {

constexpr double kMinorTick = 0.6;
constexpr double kPointsPerInch = 72;
constexpr double kMmPerInch = 25.4;
constexpr double kCmPerPoint = kCmPerInch / kPointsPerInch;
constexpr double kLabelFactorOnPrinter = 1.5;
constexpr double kLabelFactorOnForm = 2;
constexpr double kCharacterWidth = 0.56;  // of the height of a label, on an average

/// Width of a character of the labels, in centimetres. That of a form on every device, so that all of them
/// choose the same labels.
double characterWidth(double tickLength) {
  return kCharacterWidth * kLabelFactorOnForm * std::abs(tickLength) / kMmPerCm;
}

}  // namespace

/// The labels of an axis are sized from its ticks, in points.
double GralCls::labelSize(double tickLength) const {
  const double k = IsPrinter ? kLabelFactorOnPrinter : kLabelFactorOnForm;
  return k * std::abs(tickLength) * kPointsPerInch / kMmPerInch;
}

void GralCls::lineAlong(bool upright, const AxisPlace& from, const AxisPlace& to) {
  if (upright) {
    GralLineScr(from.across, from.along, to.across, to.along);
  } else {
    GralLineScr(from.along, from.across, to.along, to.across);
  }
}

/// Draws an axis with its ticks.
GralCls::AxisTicks GralCls::drawTicks(const LabelledAxis& axis, double at, double tickLength, bool ilog,
                                      bool upright) {
  const AxisMapping along = upright ? yAxis() : xAxis(), across = upright ? xAxis() : yAxis();
  const double first = along.usr2Scr(axis.from), last = along.usr2Scr(axis.to);
  const AxisTicks ticks{first, last, checked::divide(last - first, axis.intervals)};
  const double line = across.usr2Scr(at), base = across.usr2Log(at);
  const double majorEnd = across.log2Scr(base + tickLength);
  const double minorEnd = across.log2Scr(base + kMinorTick * tickLength);
  const auto tick = [&](double place, double end) { lineAlong(upright, {place, line}, {place, end}); };
  const double ln10 = std::log(10.0);
  double prev = first;
  tick(prev, majorEnd);
  for (int k = 1; k <= axis.intervals; ++k) {
    const double c = first + k * ticks.step;
    for (int m = 2; ilog && m <= 10; ++m) tick(prev + ticks.step * std::log(m) / ln10, minorEnd);
    lineAlong(upright, {prev, line}, {c, line});
    prev = c;
    tick(c, majorEnd);
  }
  return ticks;
}

void GralCls::GralOaxis(double xi, double xf, double y, double nx, double dy, bool ilog, bool iscript,
                        std::string_view xlab) {
  const double fs = labelSize(dy);
  const double L = dy / kMmPerCm;
  const double base = yUsr2Log(y);
  const double room = std::abs(xUsr2Log(xf) - xUsr2Log(xi)) / nx / characterWidth(dy);
  const LabelledAxis axis{xi, xf, nx, room};
  const AxisTicks ticks = drawTicks(axis, y, L, ilog, false);
  AxisText text{{}, std::string(xlab)};
  if (iscript) {
    const double yl = yLog2Scr(base - L - fs * (kCmPerPoint * sign(L)));
    text = axisText(axis, ilog, false, xlab);
    for (int k = 0; k <= text.labels.upper(); ++k) {
      if (text.labels[k].empty()) continue;
      GralWinPrintString(ticks.first + k * ticks.step, yl, 1, 0, fs, 0, text.labels[k]);
    }
  }
  if (!trim(text.title).empty()) {
    const double yt = yLog2Scr(base - 2 * L - fs * (kCmPerPoint * 2 * sign(L)));
    GralWinPrintString((ticks.first + ticks.last) / 2, yt, 1, 0, fs, 0, text.title);
  }
  GralRefresh();
}

void GralCls::GralVaxis(double yi, double yf, double x, double ny, double dx, bool ilog, bool iscript,
                        std::string_view yLab) {
  const double fs = labelSize(dx);
  const double L = dx / kMmPerCm;
  const double base = xUsr2Log(x);
  constexpr double kEnough = std::numeric_limits<double>::infinity();  // they stand above one another
  const LabelledAxis axis{yi, yf, ny, kEnough};
  const AxisTicks ticks = drawTicks(axis, x, L, ilog, true);
  AxisText text{{}, std::string(yLab)};
  if (iscript) {
    const double xl = xLog2Scr(base - L);
    text = axisText(axis, ilog, true, yLab);
    for (int k = 0; k <= text.labels.upper(); ++k) {
      if (text.labels[k].empty()) continue;
      GralWinPrintString(xl, ticks.first + k * ticks.step, L > 0 ? 2 : 0, 0, fs, 0, text.labels[k]);
    }
  }
  GralDev->setFontSize(fs * static_cast<double>(fScaleEff));
  const double W = widestText(text.labels);
  const int last = text.labels.upper();
  const double H = std::abs(GralDev->TextHeight(last < 0 ? "" : text.labels[last]));
  if (!trim(text.title).empty()) {
    const double xt = xLog2Scr(base - 2 * L) - sign(L) * (W + H);
    GralWinPrintString(xt, (ticks.first + ticks.last) / 2, 1, sign(L) * 90, fs, 0, text.title);
  }
  GralRefresh();
}

AxisText GralCls::axisText(const LabelledAxis& axis, bool ilog, bool vertical, std::string_view title) {
  const auto plain = [&](double from, double to) {
    Array<std::string> labels;
    double maxlen = 0;
    Makescale(from, to, labels, axis.intervals, ilog, maxlen, vertical);
    labels.redim(static_cast<int>(axis.intervals));  // behind a broken number of intervals stands nothing
    return labels;
  };
  if (ilog) return {plain(axis.from, axis.to), std::string(title)};
  return chooseLabels(axis, title, plain);
}

double GralCls::widestText(const Array<std::string>& texts) const {
  double widest = 0;
  for (int k = 0; k <= texts.upper(); ++k) widest = std::max(widest, std::abs(GralDev->TextWidth(texts[k])));
  return widest;
}

void GralCls::Makescale(double xi, double xf, Array<std::string>& xsc, double ndx, bool ilog, double& xmaxlen,
                        bool isy) {
  double step = checked::divide(xf - xi, ndx);
  std::string text;
  basnum2str(step, text);
  const int decimals = decimalsOf(text);
  xsc.dim(toInt32(ndx));
  int maxlen = 0;
  for (int k = 0; k <= ndx; ++k) {
    double value = xi + k * step;
    basnum2str(value, text);
    xsc[k] = fillDecimals(text, decimals);
    maxlen = std::max(maxlen, length(xsc[k]));
  }
  // QUIRK: the label with index 0 is not padded.
  for (int k = 1; !ilog && isy && k <= ndx; ++k) xsc[k] = padInFront(xsc[k], maxlen);
  for (int k = 0; ilog && k <= ndx; ++k) xsc[k] = decadeLabel(xsc[k], maxlen);
  xmaxlen = ilog ? kScriptWidth * maxlen + 2 : maxlen;
}

void GralCls::basnum2str(double& x, std::string& xx) {
  constexpr double kFourDecimals = 10000;
  const double rounded = Int(0.5 + kFourDecimals * std::abs(x)) * sign(x) / kFourDecimals;
  x = checked::finite(rounded);
  xx = generalText(x);
}

Int16 GralCls::Shift(Int16 inn, Int16 ish) {
  const int w = inn < 0 ? inn ^ -1 : static_cast<int>(inn);
  int acc = 0;
  bool top = false;
  int mask = 0x4000;
  for (int i = 14; i >= 0; --i, mask /= 2) {
    const bool bit = (w & mask) != 0;
    const int pos = (i + ish) % 16;
    if (pos == 15) top = bit;
    if (pos != 15 && bit) acc = toInt32(acc + std::exp2(pos));
  }
  if (top) acc |= -0x8000;
  return inn < 0 ? acc ^ -1 : acc;
}

}  // namespace vk
