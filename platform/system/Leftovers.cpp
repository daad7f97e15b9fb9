#include "platform/system/Leftovers.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <ctime>

#include "platform/Files.h"
#include "platform/system/FolderEntries.h"
#include "platform/system/OpenFile.h"

namespace vk {
namespace {

constexpr std::time_t kDay = 24 * 60 * 60;

bool isOldFile(const std::string& path) {
  struct stat status {};
  return ::lstat(path.c_str(), &status) == 0 && S_ISREG(status.st_mode) &&
         std::time(nullptr) - status.st_mtime > kDay;
}

void removeUnlessLocked(const std::string& path) {
  const OpenFile file(path, O_RDWR | O_NOFOLLOW | O_NONBLOCK);
  if (file.isOpen() && file.lock()) ::unlink(path.c_str());
}

}  // namespace

void removeLeftovers(const std::string& folder) {
  for (const std::string& name : entriesOf(folder).value_or(std::vector<std::string>())) {
    const std::string path = joinPath(folder, name);
    if (name.starts_with(kTemporaryStart) && isOldFile(path)) removeUnlessLocked(path);
  }
}

}  // namespace vk
