#pragma once

#include <cstddef>

#include "platform/Files.h"

namespace vk {

/// The disk of this machine. File names are the bytes that the system uses.
class SystemFiles : public Files {
 public:
  static constexpr std::size_t kLargestFile = std::size_t{1} << 30;

  /// Reading stops at `largestFile` bytes, so that an endless device ends.
  explicit SystemFiles(std::size_t largestFile = kLargestFile) : largestFile_(largestFile) {}

  bool FileExists(const std::string& path) override;
  std::int64_t size(const std::string& path) override;
  /// Content longer than the largest file is run-time error 57.
  std::string readAll(const std::string& path) override;
  void writeAll(const std::string& path, std::string_view bytes) override;
  bool canWrite(const std::string& path) override;
  std::string programFolder() override;
  std::string documentsFolder() override;
  std::string currentFolder() override;
  bool isWritableFolder(const std::string& folder) override;
  std::vector<std::string> drives() override;
  std::vector<std::string> subfolders(const std::string& folder) override;

 private:
  std::size_t largestFile_;
};

}  // namespace vk
