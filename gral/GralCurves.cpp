#include <cmath>
#include <vector>

#include "base/CheckedMath.h"
#include "base/Rounding.h"
#include "gral/GralCls.h"
#include "gral/Spline.h"

namespace vk {
namespace {

constexpr double kMmPerCm = 10;
/// A long plot shows itself after each so many points.
constexpr int kPointsPerRefresh = 100;

/// Decimal logarithm of the absolute value; of zero, run-time error 5.
double decimalLog(double v) {
  return checked::log(std::abs(v)) / std::log(10.0);
}

}  // namespace

void GralCls::GralDraw(const Array<double>& x, const Array<double>& y, int np) {
  if (GralUseTra && kGralPen > 0) {
    std::string pattern = GralPenTra;
    dashCarry_.forget();
    for (int i = 1; i < np; ++i) GralTraLine(x[i], y[i], x[i + 1], y[i + 1], pattern);
  } else {
    std::vector<PixelPoint> points;
    for (int i = 1; i <= np; ++i) points.push_back({xUsr2Pixel(x[i]), yUsr2Pixel(y[i])});
    GralDev->Polyline(points);
  }
  GralRefresh();
}

void GralCls::GralCurve(const Array<double>& x, const Array<double>& y, int nPt) {
  Array<double> px(nPt), py(nPt), d2x, d2y, c1x, c2x, c1y, c2y;
  for (int i = 1; i <= nPt; ++i) {
    px[i] = xUsr2Pixel(x[i]);
    py[i] = yUsr2Pixel(y[i]);
  }
  const Array<double>& t = px;
  SplineDerivatives(t, py, nPt, kNaturalEnd, kNaturalEnd, d2y);
  SplineDerivatives(t, px, nPt, kNaturalEnd, kNaturalEnd, d2x);
  SplineControlPoints(t, px, d2x, c1x, c2x, nPt);
  SplineControlPoints(t, py, d2y, c1y, c2y, nPt);
  std::vector<PixelPoint> points{{toInt32(px[1]), toInt32(py[1])}};
  for (int k = 1; k < nPt; ++k) {
    points.push_back({toInt32(c1x[k]), toInt32(c1y[k])});
    points.push_back({toInt32(c2x[k]), toInt32(c2y[k])});
    points.push_back({toInt32(px[k + 1]), toInt32(py[k + 1])});
  }
  GralDev->PolyBezier(points);
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

void GralCls::drawYBar(const PlotPoint& x, const PlotPoint& y) {
  const double r = GralMarkDim / kMmPerCm;
  if (!(std::abs(yUsr2Log(y.low) - yUsr2Log(y.high)) / 2 > r)) return;
  const double xs = xUsr2Scr(x.value);
  const double y1 = yUsr2Scr(y.low), y2 = yUsr2Scr(y.high);
  GralLineScr(xs, y1, xs, y2);
  const double xa = xLog2Scr(xUsr2Log(x.value) - r), xb = xLog2Scr(xUsr2Log(x.value) + r);
  GralLineScr(xa, y1, xb, y1);
  GralLineScr(xa, y2, xb, y2);
}

void GralCls::drawXBar(const PlotPoint& x, const PlotPoint& y) {
  const double r = GralMarkDim / kMmPerCm;
  // QUIRK: the upper end is taken through the y mapping here; the bar itself is drawn where it belongs.
  if (!(std::abs(xUsr2Log(x.low) - yUsr2Log(x.high)) / 2 > r)) return;
  const double ys = yUsr2Scr(y.value);
  const double x1 = xUsr2Scr(x.low), x2 = xUsr2Scr(x.high);
  GralLineScr(x1, ys, x2, ys);
  const double ya = yLog2Scr(yUsr2Log(y.value) - r), yb = yLog2Scr(yUsr2Log(y.value) + r);
  GralLineScr(x1, ya, x1, yb);
  GralLineScr(x2, ya, x2, yb);
}

void GralCls::PlotData(const Array<double>& Xpnt, const Array<double>& ErrXpnt, const Array<double>& Ypnt,
                       const Array<double>& ErrYpnt, int NumPnt, bool kXpntErr, bool iXLog, bool iYLog) {
  for (int k = 1; k <= NumPnt; ++k) {
    const PlotPoint x = plotPoint(Xpnt[k], kXpntErr ? ErrXpnt[k] : 0, kXpntErr, iXLog);
    const PlotPoint y = plotPoint(Ypnt[k], ErrYpnt[k], true, iYLog);
    drawYBar(x, y);
    if (kXpntErr) drawXBar(x, y);
    if (k % kPointsPerRefresh == 0) GralRefresh();
  }
  for (int k = 1; k <= NumPnt; ++k) {
    GralMark(iXLog ? decimalLog(Xpnt[k]) : Xpnt[k], iYLog ? decimalLog(Ypnt[k]) : Ypnt[k]);
    if (k % kPointsPerRefresh == 0) GralRefresh();
  }
}

}  // namespace vk
