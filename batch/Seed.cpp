#include "batch/Seed.h"

#include <cmath>
#include <limits>

#include "base/NumberText.h"
#include "batch/TerminalPorts.h"
#include "platform/system/SystemClock.h"

namespace vk {

Seed::Seed(const std::string& text) {
  if (text.empty()) {
    seed_ = SystemClock().timer();
    return;
  }
  const double value = isNumeric(text) ? scanNumber(text) : HUGE_VAL;
  if (std::abs(value) > static_cast<double>(std::numeric_limits<float>::max())) {
    throw UsageError("--seed \"" + text + "\": si attende un numero");
  }
  seed_ = static_cast<float>(value);
}

}  // namespace vk
