// Unit GralCls: mapping and conversions.

#include <tuple>

#include "base/CheckedMath.h"
#include "base/Rounding.h"
#include "gral/Plotting.h"

namespace vk {
namespace {

/// Log units per Usr unit, both edges of the page in Usr, and the mapping in double precision.
using Mapping = std::tuple<float, float, float, NarrowMapping>;

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
  return {scale, edge(firstLog), edge(lastLog), NarrowMapping()};
}

}  // namespace

void GralCls::GralXMap(double XiL, double XfL, double XiU, double XfU) {
  std::tie(xScaleU2L, XlUsr, XrUsr, xNarrow_) = mapThrough(XiL, XfL, XiU, XfU, XlLog, XrLog);
}

void GralCls::GralYMap(double YiL, double YfL, double YiU, double YfU) {
  std::tie(yScaleU2L, YtUsr, YbUsr, yNarrow_) = mapThrough(YiL, YfL, YiU, YfU, YtLog, YbLog);
}

AxisMapping GralCls::xAxis() const {
  const NarrowMapping* narrow = xNarrow_.counts(XlUsr, xScaleU2L) ? &xNarrow_ : nullptr;
  return {XlUsr, XlLog, ScrLeft, xScaleU2L, xScaleL2S, narrow, ScrWidth, static_cast<double>(PixWidth)};
}

AxisMapping GralCls::yAxis() const {
  const NarrowMapping* narrow = yNarrow_.counts(YtUsr, yScaleU2L) ? &yNarrow_ : nullptr;
  return {YtUsr, YtLog, ScrTop, yScaleU2L, yScaleL2S, narrow, ScrHeight, static_cast<double>(PixHeight)};
}

std::int32_t GralCls::xScr2Pixel(double x) const {
  return toInt32(xAxis().scr2Pixel(x));
}

std::int32_t GralCls::yScr2Pixel(double y) const {
  return toInt32(yAxis().scr2Pixel(y));
}

PixelPlace GralCls::inPixels(double x, double y) const {
  return {checked::finite(xAxis().scr2Pixel(x)), checked::finite(yAxis().scr2Pixel(y))};
}

PixelPlace GralCls::pixelOfScr(double x, double y) const {
  const PixelPlace exact = inPixels(x, y);
  return {roundHalfEven(exact.x), roundHalfEven(exact.y)};
}

PixelPlace GralCls::pixelOfUsr(double x, double y) const {
  return pixelOfScr(xUsr2Scr(x), yUsr2Scr(y));
}

float GralCls::xPixel2Usr(double p) const {
  return toSingle(xAxis().pixel2Usr(p));
}

float GralCls::yPixel2Usr(double p) const {
  return toSingle(yAxis().pixel2Usr(p));
}

}  // namespace vk
