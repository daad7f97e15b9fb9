#pragma once

#include <string>

namespace vk {

/// A number as `printf` has it, but a zero without a sign.
std::string formatted(const char* format, double value);

}  // namespace vk
