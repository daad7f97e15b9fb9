#pragma once

#include <string>

namespace vk {

/// Other programs.
class Process {
 public:
  virtual ~Process() = default;
  /// Starts a program by its full path, without arguments, and does not wait. False when it cannot start.
  virtual bool start(const std::string& program) = 0;
  /// Hands a file to the program that the desktop has for it, which shows this heading of a page for a browser; the
  /// whole page where it is empty. False when there is no such program.
  virtual bool show(const std::string& path, const std::string& heading) = 0;
};

}  // namespace vk
