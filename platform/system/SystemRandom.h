#pragma once

#include <cstdint>
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
  /// std::mt19937 in words of 32 bits; its own are of 64 on many machines, which takes more time.
  using Engine = std::mersenne_twister_engine<std::uint32_t, 32, 624, 397, 31, 0x9908b0df, 11, 0xffffffff, 7,
                                              0x9d2c5680, 15, 0xefc60000, 18, 1812433253>;

  Engine engine_;
  std::vector<float> returned_;  ///< the next one last
};

}  // namespace vk
