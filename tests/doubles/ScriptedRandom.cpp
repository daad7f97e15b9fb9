#include <gtest/gtest.h>

#include "doubles/Doubles.h"

namespace vk {

ScriptedRandom::~ScriptedRandom() {
  if (!numbers_.empty()) ADD_FAILURE() << numbers_.size() << " random numbers left over";
}

float ScriptedRandom::next() {
  if (numbers_.empty()) {
    ADD_FAILURE() << "unexpected random number";
    return 0.5F;
  }
  const float number = numbers_.front();
  numbers_.pop_front();
  return number;
}

void ScriptedRandom::giveBack(std::span<const float> numbers) {
  numbers_.insert(numbers_.begin(), numbers.begin(), numbers.end());
}

}  // namespace vk
