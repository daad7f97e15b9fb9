#include "platform/system/SystemRandom.h"

#include <bit>
#include <cstdint>

namespace vk {
namespace {

// A single holds 24 bits, so these are the multiples of 2^-24 below 1.
constexpr unsigned kDroppedBits = 8;
constexpr float kStep = 1.0F / (1 << 24);

}  // namespace

float SystemRandom::next() {
  return static_cast<float>(engine_() >> kDroppedBits) * kStep;
}

void SystemRandom::seed(float number) {
  engine_.seed(std::bit_cast<std::uint32_t>(number));
}

}  // namespace vk
