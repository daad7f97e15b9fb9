// Unit GralCls: curves, and points with error bars.

#include <cmath>
#include <vector>

#include "base/CheckedMath.h"
#include "base/Length.h"
#include "gral/PixelPath.h"
#include "gral/Plotting.h"
#include "gral/Spline.h"

namespace vk {
namespace {

/// A long plot shows itself after each so many points.
constexpr int kPointsPerRefresh = 100;

/// Decimal logarithm of the absolute value; of zero, run-time error 5.
double decimalLog(double v) {
  return checked::log(std::abs(v)) / std::log(10.0);
}

/// No point of a curve is near the column of one of the two before it.
bool columnsApart(const Array<double>& px, int nPt) {
  constexpr double kApart = 4;
  for (int i = 2; i <= nPt; ++i) {
    if (std::abs(px[i] - px[i - 1]) < kApart) return false;
    if (i > 2 && std::abs(px[i] - px[i - 2]) < kApart) return false;
  }
  return true;
}

}  // namespace

void GralCls::GralDraw(const Array<double>& x, const Array<double>& y, int np) {
  if (GralUseTra && kGralPen > 0) {
    std::string pattern = GralPenTra;
    dashCarry_.forget();
    for (int i = 1; i < np; ++i) GralTraLine(x[i], y[i], x[i + 1], y[i + 1], pattern);
  } else {
    std::vector<PixelPlace> points;
    for (int i = 1; i <= np; ++i) points.push_back(pixelOfUsr(x[i], y[i]));
    joinPixels(*GralDev, points);
  }
  GralRefresh();
}

void GralCls::GralCurve(const Array<double>& x, const Array<double>& y, int nPt) {
  Array<double> px(nPt), py(nPt), t(nPt), d2x, d2y, c1x, c2x, c1y, c2y;
  for (int i = 1; i <= nPt; ++i) {
    const PixelPlace pixel = pixelOfUsr(x[i], y[i]);
    px[i] = t[i] = pixel.x;
    py[i] = pixel.y;
  }
  // Whole pixels tell near points apart on one device and not on the next, and bend the curve through them.
  if (!columnsApart(px, nPt)) {
    for (int i = 1; i <= nPt; ++i) {
      const PixelPlace exact = inPixels(xUsr2Scr(x[i]), yUsr2Scr(y[i]));
      px[i] = exact.x;
      py[i] = exact.y;
      t[i] = xUsr2Log(x[i]);
    }
  }
  SplineDerivatives(t, py, nPt, kNaturalEnd, kNaturalEnd, d2y);
  SplineDerivatives(t, px, nPt, kNaturalEnd, kNaturalEnd, d2x);
  SplineControlPoints(t, px, d2x, c1x, c2x, nPt);
  SplineControlPoints(t, py, d2y, c1y, c2y, nPt);
  std::vector<PixelPlace> points{{px[1], py[1]}};
  for (int k = 1; k < nPt; ++k) {
    points.push_back({c1x[k], c1y[k]});
    points.push_back({c2x[k], c2y[k]});
    points.push_back({px[k + 1], py[k + 1]});
  }
  drawCurve(*GralDev, points);
  GralRefresh();
}

/// One coordinate of a data point with the ends of its error bar, in Usr.
struct GralCls::PlotPoint {
  double value, low, high;
};

GralCls::PlotPoint GralCls::plotPoint(double value, double error, bool hasError, bool logarithmic) {
  PlotPoint point{value, value, value};
  if (hasError) point = {value, value - error, value + error};
  if (!logarithmic) return point;
  const double log = decimalLog(value);
  return hasError ? PlotPoint{log, decimalLog(point.low), decimalLog(point.high)} : PlotPoint{log, log, log};
}

void GralCls::drawBar(bool upright, const PlotPoint& bar, double at) {
  const AxisMapping along = upright ? yAxis() : xAxis(), across = upright ? xAxis() : yAxis();
  const double r = static_cast<double>(GralMarkDim) / kMmPerCm;
  // QUIRK: the upper end is always taken through the y mapping here; the bar itself is drawn where it belongs.
  if (!(std::abs(along.usr2Log(bar.low) - yUsr2Log(bar.high)) / 2 > r)) return;
  const double middle = across.usr2Scr(at), log = across.usr2Log(at);
  const double first = along.usr2Scr(bar.low), last = along.usr2Scr(bar.high);
  lineAlong(upright, {first, middle}, {last, middle});
  for (const double end : {first, last}) {
    lineAlong(upright, {end, across.log2Scr(log - r)}, {end, across.log2Scr(log + r)});
  }
}

void GralCls::PlotData(const Array<double>& Xpnt, const Array<double>& ErrXpnt, const Array<double>& Ypnt,
                       const Array<double>& ErrYpnt, int NumPnt, bool kXpntErr, bool iXLog, bool iYLog) {
  for (int k = 1; k <= NumPnt; ++k) {
    const PlotPoint x = plotPoint(Xpnt[k], kXpntErr ? ErrXpnt[k] : 0, kXpntErr, iXLog);
    const PlotPoint y = plotPoint(Ypnt[k], ErrYpnt[k], true, iYLog);
    drawBar(true, y, x.value);
    if (kXpntErr) drawBar(false, x, y.value);
    if (k % kPointsPerRefresh == 0) GralRefresh();
  }
  for (int k = 1; k <= NumPnt; ++k) {
    GralMark(iXLog ? decimalLog(Xpnt[k]) : Xpnt[k], iYLog ? decimalLog(Ypnt[k]) : Ypnt[k]);
    if (k % kPointsPerRefresh == 0) GralRefresh();
  }
}

}  // namespace vk
