#pragma once

#include <gtest/gtest.h>
#include <sys/resource.h>

namespace vk {

/// For its lifetime the process may have no more of something that the system gives, such as RLIMIT_NOFILE.
class ResourceLimit {
 public:
  ResourceLimit(__rlimit_resource resource, rlim_t most) : resource_(resource) {
    EXPECT_EQ(::getrlimit(resource, &before_), 0);
    rlimit limit = before_;
    limit.rlim_cur = most;
    EXPECT_EQ(::setrlimit(resource, &limit), 0);
  }
  ~ResourceLimit() { ::setrlimit(resource_, &before_); }
  ResourceLimit(const ResourceLimit&) = delete;
  ResourceLimit& operator=(const ResourceLimit&) = delete;

 private:
  __rlimit_resource resource_;
  rlimit before_{};
};

}  // namespace vk
