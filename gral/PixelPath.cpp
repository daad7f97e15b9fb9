#include "gral/PixelPath.h"

#include <algorithm>
#include <vector>

#include "base/Rounding.h"
#include "gral/DrawnBox.h"

namespace vk {
namespace {

PixelPoint wholePixel(const PixelPlace& place) {
  return {toInt32(place.x), toInt32(place.y)};
}

std::vector<PixelPoint> wholePixels(std::span<const PixelPlace> points) {
  std::vector<PixelPoint> result;
  result.reserve(points.size());
  for (const PixelPlace& p : points) result.push_back(wholePixel(p));
  return result;
}

}  // namespace

void joinPixels(Device& device, std::span<const PixelPlace> points) {
  for (const auto& part : cutPolyline(drawnPixels(device), points)) device.Polyline(wholePixels(part));
}

void drawCurve(Device& device, std::span<const PixelPlace> points) {
  for (const auto& part : cutCurve(drawnPixels(device), points)) device.PolyBezier(wholePixels(part));
}

void makePath(Device& device, std::span<const PixelPlace> points) {
  const DrawnBox<unit::Pixel> box = drawnPixels(device);
  const bool whole =
      std::all_of(points.begin(), points.end(), [&](const PixelPlace& p) { return box.holds(p); });
  std::vector<PixelPlace> cut;
  if (!whole) {
    cut = cutArea(box, {points.begin(), points.end()});
    // What was cut off is no part of a line that is left open.
    if (!cut.empty()) cut.push_back(cut.front());
    points = cut;
  }
  device.BeginPath();
  for (const PixelPlace& p : points) {
    const PixelPoint pixel[] = {wholePixel(p)};
    device.Polyline(pixel);
  }
  device.EndPath();
}

}  // namespace vk
