#include "bench/validation/NumberCell.h"

#include <array>
#include <cstdio>

namespace vk {

std::string formatted(const char* format, double value) {
  std::array<char, 32> digits{};
  std::string text{digits.data(),
                   static_cast<std::size_t>(std::snprintf(digits.data(), digits.size(), format, value))};
  return text.find_first_not_of("-0.") == std::string::npos && text[0] == '-' ? text.substr(1) : text;
}

}  // namespace vk
