#pragma once

#include <algorithm>
#include <span>
#include <vector>

#include "gral/Device.h"
#include "gral/PlanePoint.h"

/// Cutting away what lies far outside a drawing: viewers of vectors, images and printers each have limits of
/// their own to what they can place, and behind them each goes wrong in its own way.
namespace vk {

/// The box that all figures are cut to.
template <class Unit>
struct DrawnBox {
  using Place = PlanePoint<Unit>;
  Place low, high;

  bool holds(const Place& p) const { return p.x >= low.x && p.x <= high.x && p.y >= low.y && p.y <= high.y; }
  /// Both corners of a rectangle lie within.
  bool holds(const Place& a, const Place& b) const { return holds(a) && holds(b); }
  /// A rectangle, its lower corner first, has nothing in common with the box.
  bool misses(const Place& a, const Place& b) const {
    return b.x < low.x || a.x > high.x || b.y < low.y || a.y > high.y;
  }
  /// The nearest point within.
  Place nearest(const Place& p) const {
    return {std::clamp(p.x, low.x, high.x), std::clamp(p.y, low.y, high.y)};
  }
};

/// The box around the drawing area of a device: so far outside that neither the present pen nor what viewers do
/// at ends shows from there.
DrawnBox<unit::Twip> drawnTwips(const Device& device);
DrawnBox<unit::Pixel> drawnPixels(const Device& device);

// Coordinates that are not finite are run-time error 6 in all of these. What lies within stays to the bit.

/// Cuts a line to the box; false when nothing of it is left.
template <class Unit>
bool cutLine(const DrawnBox<Unit>& box, PlanePoint<Unit>& a, PlanePoint<Unit>& b);
/// The parts of a line through points that lie within.
std::vector<std::vector<PixelPlace>> cutPolyline(const DrawnBox<unit::Pixel>& box,
                                                 std::span<const PixelPlace> points);
/// The same for Bézier curves of third degree through the points 0, 3, 6, ...
std::vector<std::vector<PixelPlace>> cutCurve(const DrawnBox<unit::Pixel>& box,
                                              std::span<const PixelPlace> points);
/// What an area, told by its outline, has in common with the box.
template <class Unit>
std::vector<PlanePoint<Unit>> cutArea(const DrawnBox<Unit>& box, std::vector<PlanePoint<Unit>> outline);
/// The outline of what a circle has in common with the box, to the twip.
std::vector<TwipPoint> cutCircle(const DrawnBox<unit::Twip>& box, const TwipPoint& centre, Twips radius);

}  // namespace vk
