#pragma once

namespace vk {

/// A point of the plane, or the way from one to another.
struct PlanePoint {
  double x = 0, y = 0;
};

constexpr PlanePoint operator+(const PlanePoint& a, const PlanePoint& b) {
  return {a.x + b.x, a.y + b.y};
}
constexpr PlanePoint operator-(const PlanePoint& a, const PlanePoint& b) {
  return {a.x - b.x, a.y - b.y};
}
constexpr PlanePoint operator*(double factor, const PlanePoint& a) {
  return {factor * a.x, factor * a.y};
}

}  // namespace vk
