#pragma once

#include <span>

#include "platform/Device.h"

namespace vk {

/// The path of these points, for the operations that draw it.
inline void makePath(Device& device, std::span<const PixelPoint> points) {
  device.BeginPath();
  device.Polyline(points);
  device.EndPath();
}

}  // namespace vk
