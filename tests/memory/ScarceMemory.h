#pragma once

namespace vk {

/// While it lives, one request for memory by "new" fails.
class ScarceMemory {
 public:
  /// `request` is its number, from 1.
  explicit ScarceMemory(long request);
  ~ScarceMemory();
  ScarceMemory(const ScarceMemory&) = delete;
  ScarceMemory& operator=(const ScarceMemory&) = delete;

  /// False as long as fewer requests came.
  bool failed() const;
};

}  // namespace vk
