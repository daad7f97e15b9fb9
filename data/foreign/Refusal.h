#pragma once

#include <stdexcept>

namespace vk {

/// Why a file cannot be understood, in one line of UTF-8. It stays within the library, whose readings hold the line.
class Refusal : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

}  // namespace vk
