#include <unistd.h>

#include <algorithm>
#include <array>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <map>
#include <optional>
#include <string>
#include <vector>

#include "base/RuntimeError.h"
#include "base/Text.h"
#include "doubles/TemporaryFolder.h"
#include "fuzz/Input.h"
#include "platform/system/SystemFiles.h"

namespace vk {
namespace {

namespace fs = std::filesystem;

/// What should be in the folder: files with their bytes, and folders. Names have "/" before each part.
class Expected {
 public:
  std::map<std::string, std::optional<std::string>> entries{{"", std::nullopt}};

  bool isFolder(const std::string& name) const {
    const auto at = entries.find(name);
    return at != entries.end() && !at->second;
  }

  /// The entry that is meant by a name; nothing when there is none.
  std::optional<std::string> find(const std::string& name) const {
    if (const std::string exact = joined(partsOf(name, "/")); entries.contains(exact)) return exact;
    return below("", partsOf(name, "/\\"));
  }

  /// The names of the entries of a folder.
  std::vector<std::string> namesIn(const std::string& folder) const {
    std::vector<std::string> names;
    for (const auto& [name, bytes] : entries) {
      if (name.starts_with(folder + "/") && name.find('/', folder.size() + 1) == name.npos)
        names.push_back(name.substr(folder.size() + 1));
    }
    return names;
  }

 private:
  using Parts = std::vector<std::string>;

  static Parts partsOf(const std::string& name, const char* separators) {
    Parts parts;
    for (std::size_t at = 0; at < name.size();) {
      const std::size_t end = std::min(name.find_first_of(separators, at), name.size());
      if (end > at) parts.push_back(name.substr(at, end - at));
      at = end + 1;
    }
    return parts;
  }

  static std::string joined(const Parts& parts) {
    std::string name;
    for (const std::string& part : parts) name += "/" + part;
    return name;
  }

  /// The exact name first, then the others by their bytes; the first that leads to the end.
  std::optional<std::string> below(const std::string& folder, const Parts& parts) const {
    if (parts.empty()) return folder;
    Parts names = namesIn(folder);
    std::stable_partition(names.begin(), names.end(),
                          [&](const std::string& name) { return name == parts.front(); });
    for (const std::string& name : names) {
      if (!equalIgnoringCase(name, parts.front())) continue;
      if (auto found = below(folder + "/" + name, Parts(parts.begin() + 1, parts.end()))) return found;
    }
    return std::nullopt;
  }
};

/// The folder of all runs, in memory where the system has a place for that.
const TemporaryFolder& sharedFolder() {
  const char* const memory = "/dev/shm";
  static const TemporaryFolder folder(::access(memory, W_OK) == 0 ? memory : fs::temp_directory_path());
  return folder;
}

class NamesProbe {
 public:
  explicit NamesProbe(Input& input) : input_(input) {}

  ~NamesProbe() {
    // What lies deeper stands behind its folder.
    std::error_code ignored;
    for (auto entry = expected_.entries.rbegin(); std::next(entry) != expected_.entries.rend(); ++entry)
      fs::remove(root_ + entry->first, ignored);
  }

  void run() {
    constexpr int kMostActions = 16;
    for (int i = 0; i < kMostActions && !input_.isEmpty(); ++i) {
      const unsigned action = input_.choice(4);
      act(action, anyName());
    }
    std::size_t found = 1;
    for (const auto& entry : fs::recursive_directory_iterator(root_)) {
      const std::string name = entry.path().string().substr(root_.size());
      require(expected_.entries.contains(name), "nothing else in the folder");
      require(entry.is_directory() == expected_.isFolder(name), "files are files");
      ++found;
    }
    require(found == expected_.entries.size(), "all that was made");
  }

 private:
  /// A name below the folder, of few letters, so that names meet.
  std::string anyName() {
    constexpr std::array<std::string_view, 12> kPieces{"a",  "A",  "b", "B",    "/",      "/",
                                                       "\\", ".d", " ", "\xE0", "\u00E8", "\u00C8"};
    std::string name;
    for (unsigned count = 1 + input_.choice(8); count > 0; --count)
      name += kPieces.at(input_.choice(kPieces.size()));
    // No name leads out of the folder, or is a folder by its end.
    for (auto at = name.find("/."); at != name.npos; at = name.find("/.")) name.erase(at + 1, 1);
    for (auto at = name.find("\\."); at != name.npos; at = name.find("\\.")) name.erase(at + 1, 1);
    while (name.starts_with('.')) name.erase(0, 1);
    while (name.ends_with('/') || name.ends_with('\\')) name.pop_back();
    return "/" + (name.empty() ? "x" : name);
  }

  void act(unsigned action, const std::string& name) {
    switch (action) {
      case 0:
        return make(name);
      case 1:
        return write(name);
      case 2:
        return look(name);
      default:
        return list(name);
    }
  }

  /// Others make files and folders of any name.
  void make(const std::string& name) {
    const std::string folder = name.substr(0, name.rfind('/'));
    if (!expected_.isFolder(folder) || expected_.entries.contains(name) || name.back() == '/') return;
    if (input_.choice(2) == 0) {
      fs::create_directory(root_ + name);
      expected_.entries[name] = std::nullopt;
    } else {
      std::ofstream(root_ + name) << name;
      expected_.entries[name] = name;
    }
  }

  void write(const std::string& name) {
    const auto entry = expected_.find(name);
    const auto folder = expected_.find(folderOf(name));
    const bool possible = entry ? !expected_.isFolder(*entry) : folder && expected_.isFolder(*folder);
    require(files_.canWrite(root_ + name) == possible, "what can be written is known before");
    const std::string bytes = name + std::to_string(input_.choice(3));
    try {
      files_.writeAll(root_ + name, bytes);
      require(possible, "written where it is possible");
      expected_.entries[entry ? *entry : *folder + "/" + GetFileName(name)] = bytes;
    } catch (const RuntimeError&) {
      require(!possible, "refused where it is impossible");
    }
  }

  void look(const std::string& name) {
    const auto entry = expected_.find(name);
    const bool isFile = entry && !expected_.isFolder(*entry);
    require(files_.FileExists(root_ + name) == isFile, "a file is found, whatever its case");
    try {
      const std::string bytes = files_.readAll(root_ + name);
      require(isFile && bytes == expected_.entries.at(*entry), "the bytes that were written");
      require(files_.size(root_ + name) == static_cast<std::int64_t>(bytes.size()), "their number");
    } catch (const RuntimeError& error) {
      require(!isFile, "a file that is there can be read");
      require(error.number() == (entry              ? kPathAccessError
                                 : isInFolder(name) ? kFileNotFound
                                                    : kPathNotFound),
              "what is missing is told");
    }
  }

  bool isInFolder(const std::string& name) const {
    const auto folder = expected_.find(folderOf(name));
    return folder && expected_.isFolder(*folder);
  }

  void list(const std::string& name) {
    const auto folder = expected_.find(name);
    try {
      std::vector<std::string> wanted = files_.subfolders(root_ + name);
      require(folder && expected_.isFolder(*folder), "a list of a folder");
      std::ranges::sort(wanted);
      std::vector<std::string> names = expected_.namesIn(*folder);
      std::erase_if(names, [&](const std::string& one) { return !expected_.isFolder(*folder + "/" + one); });
      require(wanted == names, "the folders in it");
    } catch (const RuntimeError&) {
      require(!folder || !expected_.isFolder(*folder), "a folder can be listed");
    }
  }

  Input& input_;
  const std::string root_ = sharedFolder().path();
  SystemFiles files_;
  Expected expected_;
};

}  // namespace

void probe(Input input) {
  NamesProbe(input).run();
}

}  // namespace vk
