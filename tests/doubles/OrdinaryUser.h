#pragma once

#include <gtest/gtest.h>
#include <unistd.h>

#include <filesystem>
#include <string>

#include "doubles/TemporaryFolder.h"

namespace vk {

/// For its lifetime the process has the rights of an ordinary user, so that permissions bind.
class OrdinaryUser {
 public:
  explicit OrdinaryUser(const TemporaryFolder& folder) : wasRoot_(::geteuid() == 0) {
    if (!wasRoot_) return;
    for (const auto& entry : std::filesystem::recursive_directory_iterator(folder.path()))
      give(entry.path().string());
    give(folder.path());
    EXPECT_EQ(::seteuid(kNobody), 0);
  }
  ~OrdinaryUser() {
    if (wasRoot_ && ::seteuid(0) != 0) ADD_FAILURE() << "the rights did not come back";
  }
  OrdinaryUser(const OrdinaryUser&) = delete;
  OrdinaryUser& operator=(const OrdinaryUser&) = delete;

 private:
  static constexpr uid_t kNobody = 65534;
  static void give(const std::string& path) { EXPECT_EQ(::chown(path.c_str(), kNobody, kNobody), 0); }
  bool wasRoot_;
};

}  // namespace vk
