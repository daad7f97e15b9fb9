#pragma once

#include "numeric/NormalDeviates.h"
#include "platform/Random.h"

namespace vk {

/// The uniform generator of the program as the source of the numerics.
class RandomSource : public UniformSource {
 public:
  explicit RandomSource(Random& random) : random_(random) {}
  float next() override { return random_.next(); }
  void giveBack(std::span<const float> numbers) override { random_.giveBack(numbers); }

 private:
  Random& random_;
};

}  // namespace vk
