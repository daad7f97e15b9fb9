#pragma once

namespace vk {

// QUIRK: a short decimal on purpose; ASIN and ACOS reach exactly this at the ends.
inline constexpr double kShortPi = 3.1415926;

}  // namespace vk
