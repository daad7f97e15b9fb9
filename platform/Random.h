#pragma once

#include <span>

namespace vk {

/// The uniform random generator.
class Random {
 public:
  virtual ~Random() = default;
  /// The next number in [0,1), in single precision.
  virtual float next() = 0;
  /// Takes back the numbers given last, in their order: they come again.
  virtual void giveBack(std::span<const float> numbers) = 0;
  /// Starts the sequence anew from a number, such as the time of day in seconds.
  virtual void seed(float number) = 0;
};

}  // namespace vk
