#include "batch/Seed.h"

#include <cmath>
#include <limits>

#include "base/NumberText.h"
#include "batch/TerminalPorts.h"
#include "platform/system/SystemClock.h"

namespace vk {

namespace {

float seedOf(const std::string& text) {
  if (text.empty()) return SystemClock().timer();
  const double value = numberIn(text).value_or(HUGE_VAL);
  if (std::abs(value) > static_cast<double>(std::numeric_limits<float>::max())) {
    throw UsageError("--seed \"" + text + "\": si attende un numero");
  }
  return static_cast<float>(value);
}

}  // namespace

float seedFrom(const std::string& text, Random& random) {
  const float seed = seedOf(text);
  random.seed(seed);
  return seed;
}

}  // namespace vk
