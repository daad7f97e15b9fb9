#include "platform/system/FileLookup.h"

#include <algorithm>
#include <filesystem>
#include <vector>

#include "base/Text.h"
#include "platform/Files.h"

namespace vk {
namespace {

namespace fs = std::filesystem;

bool exists(const std::string& path) {
  std::error_code ignored;
  return fs::exists(path, ignored);
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
  std::vector<std::string> found;
  std::error_code error;
  for (fs::directory_iterator entry(folder, error), end; !error && entry != end; entry.increment(error)) {
    const std::string other = entry->path().filename().string();
    if (other != name && equalIgnoringCase(other, name)) found.push_back(other);
  }
  std::sort(found.begin(), found.end());
  return found;
}

std::string findBelow(const std::string& folder, const std::vector<std::string>& names, std::size_t index) {
  if (index == names.size()) return folder;
  const auto follow = [&](const std::string& name) {
    const std::string path = joinPath(folder, name);
    return exists(path) ? findBelow(path, names, index + 1) : std::string();
  };
  if (std::string found = follow(names[index]); !found.empty()) return found;
  for (const std::string& name : lookalikes(folder, names[index])) {
    if (std::string found = follow(name); !found.empty()) return found;
  }
  return {};
}

}  // namespace

std::string findEntry(const std::string& path) {
  if (path.empty() || exists(path)) return path;
  const std::string plain = withSlashes(path);
  return findBelow(plain.front() == '/' ? "/" : ".", split(plain), 0);
}

std::string resolveForWriting(const std::string& path) {
  if (const std::string entry = findEntry(path); !entry.empty()) return entry;
  const std::string folder = folderOf(path);
  const std::string found = findEntry(folder);
  return joinPath(found.empty() ? folder : found, GetFileName(path));
}

std::string folderOf(const std::string& path) {
  const std::string plain = withSlashes(path);
  const auto separator = plain.rfind('/');
  if (separator == std::string::npos) return ".";
  return plain.substr(0, std::max<std::size_t>(separator, 1));
}

}  // namespace vk
