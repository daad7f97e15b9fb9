#pragma once

namespace vk {

/// Sizes of marks and ticks are told in mm, places on the page in cm.
inline constexpr double kMmPerCm = 10;

}  // namespace vk
