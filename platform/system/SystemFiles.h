#pragma once

#include <cstddef>
#include <functional>

#include "platform/Files.h"

namespace vk {

/// What becomes of entries that are neither files nor folders: pipes, devices and the like. They may have no end,
/// or none who writes: a program with a window refuses them, which is run-time error 57; at a terminal the user
/// who named them can wait. There a name for an open file of the process means that stream as well, whatever is
/// behind it: the file behind "/dev/stdout" is written to where it stands, and not replaced.
enum class Streams { kRefused, kTaken };

/// The disk of this machine. File names are the bytes that the system uses.
class SystemFiles : public Files {
 public:
  static constexpr std::size_t kLargestFile = std::size_t{1} << 30;
  /// A file of this size keeps its user waiting.
  static constexpr std::size_t kLongFile = std::size_t{1} << 20;

  /// Reading stops at `largestFile` bytes, so that an endless device ends.
  explicit SystemFiles(Streams streams = Streams::kRefused, std::size_t largestFile = kLargestFile)
      : streams_(streams), largestFile_(largestFile) {}

  /// Called before a long file is read.
  std::function<void()> onLongRead;

  bool FileExists(const std::string& path) override;
  std::int64_t size(const std::string& path) override;
  /// Content longer than the largest file is run-time error 57.
  std::string readAll(const std::string& path) override;
  void writeAll(const std::string& path, std::string_view bytes) override;
  bool canWrite(const std::string& path) override;
  std::string programFolder() override;
  std::string documentsFolder() override;
  std::string currentFolder() override;
  bool startedAtTerminal() override;
  bool isWritableFolder(const std::string& folder) override;
  std::vector<std::string> drives() override;
  std::vector<std::string> subfolders(const std::string& folder) override;

 private:
  bool refuses(const std::string& entry) const;

  Streams streams_;
  std::size_t largestFile_;
};

}  // namespace vk
