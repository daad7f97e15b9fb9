#pragma once

#include <array>
#include <span>
#include <vector>

#include "gral/Device.h"
#include "gral/PlanePoint.h"

/// Cutting away what lies far outside a drawing: viewers of vectors, images and printers each have limits of
/// their own to what they can place, and behind them each goes wrong in its own way.
namespace vk {

/// The box that all figures are cut to, in twips or pixels.
struct DrawnBox {
  PlanePoint low, high;

  bool holds(const PlanePoint& p) const {
    return p.x >= low.x && p.x <= high.x && p.y >= low.y && p.y <= high.y;
  }
  /// Both corners of a rectangle lie within.
  bool holds(const PlanePoint& a, const PlanePoint& b) const { return holds(a) && holds(b); }
  /// A rectangle, its lower corner first, has nothing in common with the box.
  bool misses(const PlanePoint& a, const PlanePoint& b) const {
    return b.x < low.x || a.x > high.x || b.y < low.y || a.y > high.y;
  }
  /// The nearest point within.
  PlanePoint nearest(const PlanePoint& p) const;
};

/// The box around the drawing area of a device: so far outside that neither the present pen nor what viewers do
/// at ends shows from there.
DrawnBox drawnTwips(const Device& device);
DrawnBox drawnPixels(const Device& device);

// Coordinates that are not finite are run-time error 6 in all of these. What lies within stays to the bit.

/// Cuts a line to the box; false when nothing of it is left.
bool cutLine(const DrawnBox& box, PlanePoint& a, PlanePoint& b);
/// The parts of a line through points that lie within.
std::vector<std::vector<PlanePoint>> cutPolyline(const DrawnBox& box, std::span<const PlanePoint> points);
/// The same for Bézier curves of third degree through the points 0, 3, 6, ...
std::vector<std::vector<PlanePoint>> cutCurve(const DrawnBox& box, std::span<const PlanePoint> points);
/// What an area, told by its outline, has in common with the box.
std::vector<PlanePoint> cutArea(const DrawnBox& box, std::span<const PlanePoint> outline);
/// The outline of what a circle has in common with the box, to the unit.
std::vector<PlanePoint> cutCircle(const DrawnBox& box, const PlanePoint& centre, double radius);

}  // namespace vk
