#pragma once

#include <cstddef>

namespace vk {

/// Which requests for memory by "new" fail.
struct MemoryFault {
  long request;           ///< its number, from 1, among those that count; 0: none
  bool lasts = false;     ///< so do all that come behind it
  std::size_t least = 0;  ///< only requests for so many bytes or more count
  bool own = false;  ///< only those of the program itself count, and not those of the libraries that it loads
};

/// While it lives, requests for memory of the thread that made it fail.
class ScarceMemory {
 public:
  explicit ScarceMemory(const MemoryFault& fault);
  ~ScarceMemory();
  ScarceMemory(const ScarceMemory&) = delete;
  ScarceMemory& operator=(const ScarceMemory&) = delete;

  /// The requests so far that count.
  long requests() const;
  /// False as long as fewer requests came than up to the first that fails.
  bool failed() const;
};

}  // namespace vk
