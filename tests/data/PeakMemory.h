#pragma once

#include <cstddef>

namespace vk {

/// Watches how much memory the program holds at most.
class PeakMemory {
 public:
  PeakMemory();
  /// The most that was held at a time since, beyond what was held at the start.
  std::size_t bytes() const;

 private:
  std::size_t start_;
};

}  // namespace vk
