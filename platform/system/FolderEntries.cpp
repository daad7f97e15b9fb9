#include "platform/system/FolderEntries.h"

#include <dirent.h>

#include <memory>

namespace vk {

std::optional<std::vector<std::string>> entriesOf(const std::string& folder) {
  struct Close {
    void operator()(DIR* list) const { ::closedir(list); }
  };
  const std::unique_ptr<DIR, Close> list(::opendir(folder.c_str()));
  if (list == nullptr) return std::nullopt;
  std::vector<std::string> names;
  while (const dirent* entry = ::readdir(list.get())) {
    std::string name = entry->d_name;
    if (name != "." && name != "..") names.push_back(std::move(name));
  }
  return names;
}

}  // namespace vk
