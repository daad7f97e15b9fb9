#pragma once

#include <QRect>
#include <QSize>
#include <cmath>

#include "ui/layout/Geometry.h"

/// Twips and the toolkit's pixels. A pixel of the toolkit is a nominal one on every screen.
namespace vk {

inline int toPixels(double twips) {
  return static_cast<int>(std::lround(twips / kTwipsPerPixel));
}
inline int toTwips(int pixels) {
  return pixels * kTwipsPerPixel;
}
/// Edges are rounded, not sizes, so that places that touch go on touching.
inline QRect toPixels(const Rect& rect) {
  const QPoint topLeft(toPixels(rect.left), toPixels(rect.top));
  const QPoint end(toPixels(rect.right()), toPixels(rect.bottom()));
  return {topLeft, end - QPoint(1, 1)};
}
inline Rect toTwips(const QRect& rect) {
  return {toTwips(rect.left()) * 1.0, toTwips(rect.top()) * 1.0, toTwips(rect.width()) * 1.0,
          toTwips(rect.height()) * 1.0};
}
inline Size toTwips(const QSize& size) {
  return {toTwips(size.width()) * 1.0, toTwips(size.height()) * 1.0};
}

}  // namespace vk
