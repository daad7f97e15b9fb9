#include "platform/system/FileLookup.h"

#include <sys/stat.h>

#include <algorithm>
#include <filesystem>
#include <set>
#include <tuple>
#include <utility>
#include <vector>

#include "base/Text.h"
#include "platform/Files.h"
#include "platform/system/FolderEntries.h"

namespace vk {
namespace {

namespace fs = std::filesystem;

bool exists(const std::string& path) {
  std::error_code ignored;
  return fs::exists(path, ignored);
}

bool isLink(const std::string& path) {
  std::error_code ignored;
  return fs::is_symlink(path, ignored);
}

std::string withSlashes(std::string path) {
  std::replace(path.begin(), path.end(), '\\', '/');
  return path;
}

std::vector<std::string> split(const std::string& path) {
  std::vector<std::string> names;
  for (std::size_t at = 0; at < path.size();) {
    const std::size_t end = std::min(path.find('/', at), path.size());
    if (end > at) names.push_back(path.substr(at, end - at));
    at = end + 1;
  }
  return names;
}

/// Entries of a folder that are equal to the name but for the case, in the order of their bytes.
std::vector<std::string> lookalikes(const std::string& folder, const std::string& name) {
  std::vector<std::string> found = entriesOf(folder).value_or(std::vector<std::string>());
  std::erase_if(found,
                [&](const std::string& other) { return other == name || !equalIgnoringCase(other, name); });
  std::sort(found.begin(), found.end());
  return found;
}

/// The way down from a folder by names that are equal but for the case.
///
/// A folder that led nowhere is not gone through again, whatever path leads there: with links back into a folder the
/// paths are more than anybody could try.
class WayDown {
 public:
  explicit WayDown(std::vector<std::string> names) : names_(std::move(names)) {}

  /// The entry that the names from `index` on lead to; empty when there is none.
  std::string from(const std::string& folder, std::size_t index) {
    if (index == names_.size()) return folder;
    struct stat status {};
    if (::stat(folder.c_str(), &status) != 0) return {};
    if (!tried_.emplace(status.st_dev, status.st_ino, index).second) return {};
    if (std::string found = follow(folder, names_[index], index); !found.empty()) return found;
    for (const std::string& name : lookalikes(folder, names_[index])) {
      if (std::string found = follow(folder, name, index); !found.empty()) return found;
    }
    return {};
  }

 private:
  std::string follow(const std::string& folder, const std::string& name, std::size_t index) {
    const std::string path = joinPath(folder, name);
    return exists(path) ? from(path, index + 1) : std::string();
  }

  std::vector<std::string> names_;
  std::set<std::tuple<dev_t, ino_t, std::size_t>> tried_;
};

}  // namespace

std::string findEntry(const std::string& path) {
  if (path.empty() || exists(path)) return path;
  const std::string plain = withSlashes(path);
  return WayDown(split(plain)).from(plain.front() == '/' ? "/" : ".", 0);
}

std::string resolveForWriting(const std::string& path) {
  if (isLink(path)) return path;  // also one that leads nowhere yet
  if (std::string entry = findEntry(path); !entry.empty()) return entry;
  const std::string folder = folderOf(path);
  const std::string found = findEntry(folder);
  // A "\" that names no folder would be a sign of the file's own name.
  return joinPath(found.empty() ? withSlashes(folder) : found, GetFileName(path));
}

}  // namespace vk
