#pragma once

#include <cmath>
#include <cstdint>

#include "base/Int16.h"

namespace vk {

/// The nearest integer, a tie going to the even neighbour. Relies on the default rounding mode.
inline double roundHalfEven(double value) {
  return std::nearbyint(value);
}

/// The largest integer not above the value.
inline double Int(double value) {
  return std::floor(value);
}

/// Rounds to 32 bits, ties to even; what does not fit, or is no number, is run-time error 6.
inline std::int32_t toInt32(double value) {
  const double rounded = roundHalfEven(value);
  if (!(rounded >= INT32_MIN && rounded <= INT32_MAX)) throw RuntimeError(kOverflow);
  return static_cast<std::int32_t>(rounded);
}

/// Rounds to 16 bits, ties to even; what does not fit, or is no number, is run-time error 6.
inline Int16 toInt16(double value) {
  return Int16(toInt32(value));
}

/// The value in single precision; what does not fit, or is no number, is run-time error 6.
inline float toSingle(double value) {
  const float narrow = static_cast<float>(value);
  if (!std::isfinite(narrow)) throw RuntimeError(kOverflow);
  return narrow;
}

/// -1, 0 or 1.
inline int sign(double value) {
  return (value > 0) - (value < 0);
}

}  // namespace vk
