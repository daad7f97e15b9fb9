// Unit GralCls: mapping and conversions.

#include "base/CheckedMath.h"
#include "base/Rounding.h"
#include "gral/Plotting.h"

namespace vk {
namespace {

/// A mapping of one coordinate: Log units per Usr unit and both edges of the page in Usr.
struct Mapping {
  float scale, firstEdge, lastEdge;
  NarrowMapping narrow;
};

/// QUIRK: the fields of a mapping are singles, and so is the mapping wherever they resolve it.
Mapping mapThrough(double log1, double log2, double usr1, double usr2, double firstLog, double lastLog) {
  const double slope = checked::divide(log1 - log2, usr1 - usr2);
  if (needsDoubles(usr1, usr2)) {
    const auto edge = [&](double log) { return clampedSingle(usr1 + checked::divide(log - log1, slope)); };
    const float scale = clampedSingle(slope), first = edge(firstLog);
    return {scale, first, edge(lastLog), NarrowMapping(log1, usr1, slope, first, scale)};
  }
  const float scale = toSingle(slope);
  const auto edge = [&](double log) { return toSingle(usr1 + checked::divide(log - log1, scale)); };
  return {scale, edge(firstLog), edge(lastLog), {}};
}

/// From a system to the next by its scale: `edge` is mapped to `image`. Fields of single precision widen here.
double forth(double value, double edge, double scale, double image) {
  return image + (value - edge) * scale;
}

/// The way back.
double back(double value, double image, double scale, double edge) {
  return edge + checked::divide(value - image, scale);
}

}  // namespace

void GralCls::GralXMap(double XiL, double XfL, double XiU, double XfU) {
  const Mapping mapping = mapThrough(XiL, XfL, XiU, XfU, XlLog, XrLog);
  xScaleU2L = mapping.scale;
  XlUsr = mapping.firstEdge;
  XrUsr = mapping.lastEdge;
  xNarrow_ = mapping.narrow;
}

void GralCls::GralYMap(double YiL, double YfL, double YiU, double YfU) {
  const Mapping mapping = mapThrough(YiL, YfL, YiU, YfU, YtLog, YbLog);
  yScaleU2L = mapping.scale;
  YtUsr = mapping.firstEdge;
  YbUsr = mapping.lastEdge;
  yNarrow_ = mapping.narrow;
}

double GralCls::xLog2Scr(double x) const {
  return forth(x, XlLog, xScaleL2S, ScrLeft);
}

double GralCls::xScr2Log(double x) const {
  return back(x, ScrLeft, xScaleL2S, XlLog);
}

double GralCls::xUsr2Log(double x) const {
  if (xNarrow_.counts(XlUsr, xScaleU2L)) return xNarrow_.toLog(x);
  return forth(x, XlUsr, xScaleU2L, XlLog);
}

double GralCls::xLog2Usr(double x) const {
  if (xNarrow_.counts(XlUsr, xScaleU2L)) return xNarrow_.toUsr(x);
  return back(x, XlLog, xScaleU2L, XlUsr);
}

double GralCls::xUsr2Scr(double x) const {
  return xLog2Scr(xUsr2Log(x));
}

double GralCls::xScr2Usr(double x) const {
  return xLog2Usr(xScr2Log(x));
}

double GralCls::yLog2Scr(double y) const {
  return forth(y, YtLog, yScaleL2S, ScrTop);
}

double GralCls::yScr2Log(double y) const {
  return back(y, ScrTop, yScaleL2S, YtLog);
}

double GralCls::yUsr2Log(double y) const {
  if (yNarrow_.counts(YtUsr, yScaleU2L)) return yNarrow_.toLog(y);
  return forth(y, YtUsr, yScaleU2L, YtLog);
}

double GralCls::yLog2Usr(double y) const {
  if (yNarrow_.counts(YtUsr, yScaleU2L)) return yNarrow_.toUsr(y);
  return back(y, YtLog, yScaleU2L, YtUsr);
}

double GralCls::yUsr2Scr(double y) const {
  return yLog2Scr(yUsr2Log(y));
}

double GralCls::yScr2Usr(double y) const {
  return yLog2Usr(yScr2Log(y));
}

std::int32_t GralCls::xScr2Pixel(double x) const {
  return toInt32(PixWidth * checked::divide(x, ScrWidth));
}

std::int32_t GralCls::yScr2Pixel(double y) const {
  return toInt32(PixHeight * checked::divide(y, ScrHeight));
}

std::int32_t GralCls::xUsr2Pixel(double x) const {
  return xScr2Pixel(xLog2Scr(xUsr2Log(x)));
}

std::int32_t GralCls::yUsr2Pixel(double y) const {
  return yScr2Pixel(yLog2Scr(yUsr2Log(y)));
}

PixelPlace GralCls::inPixels(double x, double y) const {
  return {checked::finite(PixWidth * checked::divide(x, ScrWidth)),
          checked::finite(PixHeight * checked::divide(y, ScrHeight))};
}

PixelPlace GralCls::pixelOfScr(double x, double y) const {
  const PixelPlace exact = inPixels(x, y);
  return {roundHalfEven(exact.x), roundHalfEven(exact.y)};
}

PixelPlace GralCls::pixelOfUsr(double x, double y) const {
  return pixelOfScr(xUsr2Scr(x), yUsr2Scr(y));
}

float GralCls::xPixel2Usr(double p) const {
  return toSingle(xLog2Usr(xScr2Log(ScrWidth * checked::divide(p, PixWidth))));
}

float GralCls::yPixel2Usr(double p) const {
  return toSingle(yLog2Usr(yScr2Log(ScrHeight * checked::divide(p, PixHeight))));
}

}  // namespace vk
