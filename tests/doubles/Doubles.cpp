#include "doubles/Doubles.h"

#include <gtest/gtest.h>

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

}  // namespace vk
