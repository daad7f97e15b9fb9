#pragma once

#include <QRect>
#include <QSize>
#include <cmath>

#include "base/Length.h"
#include "ui/layout/Geometry.h"

/// Twips and the toolkit's pixels. A pixel of the toolkit is a nominal one on every screen.
namespace vk {

inline int toPixels(Twips length) {
  return static_cast<int>(std::lround(length.value() / kNominalTwipsPerPixel));
}
inline Twips toTwips(int pixels) {
  return Twips(pixels * kNominalTwipsPerPixel);
}
inline QPoint toPixels(Twips left, Twips top) {
  return {toPixels(left), toPixels(top)};
}
inline QSize toPixels(const Size& size) {
  return {toPixels(Twips(size.width)), toPixels(Twips(size.height))};
}
/// Edges are rounded, not sizes, so that places that touch go on touching.
inline QRect toPixels(const Rect& rect) {
  const QPoint end = toPixels(Twips(rect.right()), Twips(rect.bottom()));
  return {toPixels(Twips(rect.left), Twips(rect.top)), end - QPoint(1, 1)};
}
inline Size toTwips(const QSize& size) {
  return {toTwips(size.width()).value(), toTwips(size.height()).value()};
}
inline Rect toTwips(const QRect& rect) {
  const Size size = toTwips(rect.size());
  return {toTwips(rect.left()).value(), toTwips(rect.top()).value(), size.width, size.height};
}

}  // namespace vk
