#pragma once

namespace vk {

/// The time of day.
class Clock {
 public:
  virtual ~Clock() = default;
  /// Seconds since midnight, in single precision.
  virtual float timer() = 0;
};

}  // namespace vk
