#include "base/CheckedMath.h"
#include "base/Rounding.h"
#include "gral/GralCls.h"

namespace vk {
namespace {

/// A mapping of one coordinate: Log units per Usr unit and both edges of the page in Usr.
struct Mapping {
  float scale, firstEdge, lastEdge;
};

Mapping mapThrough(double log1, double log2, double usr1, double usr2, double firstLog, double lastLog) {
  const float scale = toSingle(checked::divide(log1 - log2, usr1 - usr2));
  const auto edge = [&](double log) { return toSingle(usr1 + checked::divide(log - log1, scale)); };
  return {scale, edge(firstLog), edge(lastLog)};
}

}  // namespace

void GralCls::GralXMap(double XiL, double XfL, double XiU, double XfU) {
  const Mapping mapping = mapThrough(XiL, XfL, XiU, XfU, XlLog, XrLog);
  xScaleU2L = mapping.scale;
  XlUsr = mapping.firstEdge;
  XrUsr = mapping.lastEdge;
}

void GralCls::GralYMap(double YiL, double YfL, double YiU, double YfU) {
  const Mapping mapping = mapThrough(YiL, YfL, YiU, YfU, YtLog, YbLog);
  yScaleU2L = mapping.scale;
  YtUsr = mapping.firstEdge;
  YbUsr = mapping.lastEdge;
}

double GralCls::xLog2Scr(double x) const {
  return ScrLeft + (x - XlLog) * xScaleL2S;
}

double GralCls::xScr2Log(double x) const {
  return XlLog + checked::divide(x - ScrLeft, xScaleL2S);
}

double GralCls::xUsr2Log(double x) const {
  return XlLog + (x - XlUsr) * xScaleU2L;
}

double GralCls::xLog2Usr(double x) const {
  return XlUsr + checked::divide(x - XlLog, xScaleU2L);
}

double GralCls::xUsr2Scr(double x) const {
  return xLog2Scr(xUsr2Log(x));
}

double GralCls::xScr2Usr(double x) const {
  return xLog2Usr(xScr2Log(x));
}

double GralCls::yLog2Scr(double y) const {
  return ScrTop + (y - YtLog) * yScaleL2S;
}

double GralCls::yScr2Log(double y) const {
  return YtLog + checked::divide(y - ScrTop, yScaleL2S);
}

double GralCls::yUsr2Log(double y) const {
  return YtLog + (y - YtUsr) * yScaleU2L;
}

double GralCls::yLog2Usr(double y) const {
  return YtUsr + checked::divide(y - YtLog, yScaleU2L);
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

float GralCls::xPixel2Usr(double p) const {
  return toSingle(xLog2Usr(xScr2Log(ScrWidth * checked::divide(p, PixWidth))));
}

float GralCls::yPixel2Usr(double p) const {
  return toSingle(yLog2Usr(yScr2Log(ScrHeight * checked::divide(p, PixHeight))));
}

}  // namespace vk
