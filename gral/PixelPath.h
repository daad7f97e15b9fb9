#pragma once

#include <span>

#include "gral/Device.h"
#include "gral/PlanePoint.h"

/// Figures in pixels of a device that may lie anywhere: what is far outside is cut away, the rest is rounded to
/// whole pixels. A point that is not finite is run-time error 6.
namespace vk {

/// Joins the points with the current pen.
void joinPixels(Device& device, std::span<const PixelPlace> points);
/// Bézier curves of third degree through the points 0, 3, 6, ...
void drawCurve(Device& device, std::span<const PixelPlace> points);
/// The path of an area with these corners, for the operations that draw it.
void makePath(Device& device, std::span<const PixelPlace> points);

}  // namespace vk
