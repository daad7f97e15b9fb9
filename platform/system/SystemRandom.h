#pragma once

#include <random>
#include <vector>

#include "platform/Random.h"

namespace vk {

/// A uniform generator of long period. The same seed gives the same sequence on every machine; without a seed
/// every program run draws the same numbers.
class SystemRandom : public Random {
 public:
  float next() override;
  void giveBack(std::span<const float> numbers) override;
  void seed(float number) override;

 private:
  std::mt19937 engine_;
  std::vector<float> returned_;  ///< the next one last
};

}  // namespace vk
