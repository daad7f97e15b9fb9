#include "batch/Seed.h"

#include <limits>

#include "batch/Assignment.h"
#include "platform/system/SystemClock.h"

namespace vk {

float seedFrom(const std::string& text, Random& random) {
  constexpr double kMost = std::numeric_limits<float>::max();
  const float seed =
      text.empty() ? SystemClock().timer() : static_cast<float>(parseNumber("--seed", text, kMost));
  random.seed(seed);
  return seed;
}

}  // namespace vk
