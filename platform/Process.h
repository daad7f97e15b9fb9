#pragma once

#include <string>

namespace vk {

/// Other programs.
class Process {
 public:
  virtual ~Process() = default;
  /// Starts a program by its full path, without arguments, and does not wait. False when it cannot start.
  virtual bool start(const std::string& program) = 0;
};

}  // namespace vk
