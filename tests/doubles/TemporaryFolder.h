#pragma once

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <map>
#include <sstream>
#include <stdexcept>
#include <string>

namespace vk {

/// Where files are only memory, for tests that write them by the thousand; on other systems the usual place.
inline std::filesystem::path folderInMemory() {
  const std::filesystem::path memory = "/dev/shm";
  std::error_code ignored;
  return std::filesystem::is_directory(memory, ignored) ? memory : std::filesystem::temp_directory_path();
}

/// The bytes of a file. Two that are missing would be the same: an exception where it cannot be read.
inline std::string fileContent(const std::string& path) {
  const std::ifstream file(path, std::ios::binary);
  if (!file) throw std::runtime_error("cannot be read: " + path);
  std::ostringstream bytes;
  bytes << file.rdbuf();
  return bytes.str();
}

/// A folder of its own for a test, gone at its end.
class TemporaryFolder {
 public:
  explicit TemporaryFolder(const std::filesystem::path& parent = std::filesystem::temp_directory_path()) {
    std::string pattern = (parent / "vor_kel_test_XXXXXX").string();
    path_ = ::mkdtemp(pattern.data());
  }
  ~TemporaryFolder() {
    std::error_code ignored;
    std::filesystem::permissions(path_, std::filesystem::perms::owner_all, ignored);
    std::filesystem::remove_all(path_, ignored);
  }
  TemporaryFolder(const TemporaryFolder&) = delete;
  TemporaryFolder& operator=(const TemporaryFolder&) = delete;

  const std::string& path() const { return path_; }
  std::string operator/(const std::string& name) const { return path_ + "/" + name; }

  /// Makes a file, and the folders above it.
  std::string make(const std::string& name, const std::string& bytes = "") const {
    const std::string path = *this / name;
    std::filesystem::create_directories(std::filesystem::path(path).parent_path());
    std::ofstream(path, std::ios::binary) << bytes;
    return path;
  }
  std::string bytesOf(const std::string& name) const { return fileContent(*this / name); }
  /// The files of the folder itself, and their bytes.
  std::map<std::string, std::string> files() const {
    std::map<std::string, std::string> files;
    for (const auto& entry : std::filesystem::directory_iterator(path_)) {
      const std::string name = entry.path().filename().string();
      if (entry.is_regular_file()) files[name] = bytesOf(name);
    }
    return files;
  }
  /// How many entries the folder itself has.
  int count() const {
    const std::filesystem::directory_iterator entries(path_);
    return static_cast<int>(std::distance(begin(entries), end(entries)));
  }

 private:
  std::string path_;
};

}  // namespace vk
