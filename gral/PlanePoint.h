#pragma once

#include "base/Length.h"

namespace vk {

/// A point of the plane, or the way from one to another, in coordinates of a unit.
template <class Unit, class Number = double>
struct PlanePoint {
  Number x = 0, y = 0;
  bool operator==(const PlanePoint&) const = default;
};

template <class Unit>
constexpr PlanePoint<Unit> operator+(const PlanePoint<Unit>& a, const PlanePoint<Unit>& b) {
  return {a.x + b.x, a.y + b.y};
}
template <class Unit>
constexpr PlanePoint<Unit> operator-(const PlanePoint<Unit>& a, const PlanePoint<Unit>& b) {
  return {a.x - b.x, a.y - b.y};
}
template <class Unit>
constexpr PlanePoint<Unit> operator*(double factor, const PlanePoint<Unit>& a) {
  return {factor * a.x, factor * a.y};
}

namespace unit {

/// The coordinates of the caller, along both axes whatever he plots.
struct Usr {};

}  // namespace unit

using UsrPoint = PlanePoint<unit::Usr>;
using TwipPoint = PlanePoint<unit::Twip>;
/// A place in pixels that is not yet rounded to one.
using PixelPlace = PlanePoint<unit::Pixel>;

/// A place in twips, in pixels of a device.
constexpr PixelPlace toPixels(const TwipPoint& point, double twipsPerPixel) {
  const double perTwip = 1 / twipsPerPixel;
  return {perTwip * point.x, perTwip * point.y};
}

}  // namespace vk
