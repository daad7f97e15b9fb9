// Unit GralCls: axes with ticks and labels.

#include <algorithm>
#include <cmath>
#include <limits>

#include "base/CheckedMath.h"
#include "base/NumberText.h"
#include "base/Rounding.h"
#include "base/Text.h"
#include "gral/AxisLabels.h"
#include "gral/Plotting.h"
#include "gral/ScaleLabels.h"
#include "gral/Units.h"

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

/// `across` draws a tick at a place of the axis to its end, `along` a piece of the axis itself.
template <class DrawAcross, class DrawAlong>
void GralCls::drawTicks(const AxisTicks& ticks, double n, bool ilog, DrawAcross across, DrawAlong along) {
  const double ln10 = std::log(10.0);
  double prev = ticks.first;
  across(prev, ticks.majorEnd);
  for (int k = 1; k <= n; ++k) {
    const double c = ticks.first + k * ticks.step;
    for (int m = 2; ilog && m <= 10; ++m) across(prev + ticks.step * std::log(m) / ln10, ticks.minorEnd);
    along(prev, c);
    prev = c;
    across(c, ticks.majorEnd);
  }
}

void GralCls::GralOaxis(double xi, double xf, double y, double nx, double dy, bool ilog, bool iscript,
                        std::string_view xlab) {
  const double fs = labelSize(dy);
  const double L = dy / kMmPerCm;
  const double base = yUsr2Log(y);
  const double a = xUsr2Scr(xi), b = xUsr2Scr(xf);
  const AxisTicks ticks{a, checked::divide(b - a, nx), yUsr2Scr(y), yLog2Scr(base + L),
                        yLog2Scr(base + kMinorTick * L)};
  drawTicks(
      ticks, nx, ilog, [&](double x, double end) { GralLineScr(x, ticks.at, x, end); },
      [&](double from, double to) { GralLineScr(from, ticks.at, to, ticks.at); });
  AxisText text{{}, std::string(xlab)};
  if (iscript) {
    const double yl = yLog2Scr(base - L - fs * (kCmPerPoint * sign(L)));
    const double room = std::abs(xUsr2Log(xf) - xUsr2Log(xi)) / nx / characterWidth(dy);
    text = axisText({xi, xf, nx, room}, ilog, false, xlab);
    for (int k = 0; k <= text.labels.upper(); ++k) {
      if (text.labels[k].empty()) continue;
      GralWinPrintString(ticks.first + k * ticks.step, yl, 1, 0, fs, 0, text.labels[k]);
    }
  }
  if (!trim(text.title).empty()) {
    const double yt = yLog2Scr(base - 2 * L - fs * (kCmPerPoint * 2 * sign(L)));
    GralWinPrintString((a + b) / 2, yt, 1, 0, fs, 0, text.title);
  }
  GralRefresh();
}

void GralCls::GralVaxis(double yi, double yf, double x, double ny, double dx, bool ilog, bool iscript,
                        std::string_view yLab) {
  const double fs = labelSize(dx);
  const double L = dx / kMmPerCm;
  const double base = xUsr2Log(x);
  const double a = yUsr2Scr(yi), b = yUsr2Scr(yf);
  const AxisTicks ticks{a, checked::divide(b - a, ny), xUsr2Scr(x), xLog2Scr(base + L),
                        xLog2Scr(base + kMinorTick * L)};
  drawTicks(
      ticks, ny, ilog, [&](double y, double end) { GralLineScr(ticks.at, y, end, y); },
      [&](double from, double to) { GralLineScr(ticks.at, from, ticks.at, to); });
  AxisText text{{}, std::string(yLab)};
  if (iscript) {
    const double xl = xLog2Scr(base - L);
    constexpr double kEnough = std::numeric_limits<double>::infinity();  // they stand above one another
    text = axisText({yi, yf, ny, kEnough}, ilog, true, yLab);
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
    GralWinPrintString(xt, (a + b) / 2, 1, sign(L) * 90, fs, 0, text.title);
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
