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
  if (!returned_.empty()) {
    const float number = returned_.back();
    returned_.pop_back();
    return number;
  }
  return static_cast<float>(engine_() >> kDroppedBits) * kStep;
}

void SystemRandom::giveBack(std::span<const float> numbers) {
  returned_.insert(returned_.end(), numbers.rbegin(), numbers.rend());
}

void SystemRandom::seed(float number) {
  returned_.clear();
  engine_.seed(std::bit_cast<std::uint32_t>(number));
}

}  // namespace vk
