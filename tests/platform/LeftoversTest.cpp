#include "platform/system/Leftovers.h"

#include <sys/stat.h>

#include <chrono>
#include <filesystem>

#include "doubles/OrdinaryUser.h"
#include "doubles/TemporaryFolder.h"

namespace vk {
namespace {

namespace fs = std::filesystem;

TEST(Leftovers, StayWhereTheyMayNotBeLookedAtOrOpened) {
  const TemporaryFolder folder;
  const std::string left = folder.make(".vor_kel-17-1", "left"),
                    locked = folder.make(".vor_kel-17-2", "left");
  for (const std::string& path : {left, locked}) {
    fs::last_write_time(path, fs::file_time_type::clock::now() - std::chrono::hours(25));
  }
  ::chmod(locked.c_str(), 0);
  const OrdinaryUser user(folder);
  ::chmod(folder.path().c_str(), 0400);
  removeLeftovers(folder.path());
  ::chmod(folder.path().c_str(), 0700);
  EXPECT_EQ(folder.count(), 2);
  removeLeftovers(folder.path());
  EXPECT_FALSE(fs::exists(left));
  EXPECT_TRUE(fs::exists(locked));
  removeLeftovers(folder / "none");
}

}  // namespace
}  // namespace vk
