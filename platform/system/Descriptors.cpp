#include "platform/system/Descriptors.h"

#include <cerrno>
#include <charconv>
#include <filesystem>

#include "platform/Files.h"
#include "platform/system/FileLookup.h"
#include "platform/system/OpenFile.h"
#include "platform/system/SystemError.h"

namespace vk {
namespace {

constexpr const char* kOpenFilesFolder = "/proc/self/fd";

std::optional<int> wholeNumber(const std::string& name) {
  int number = 0;
  const char* end = name.data() + name.size();
  const auto [stop, error] = std::from_chars(name.data(), end, number);
  if (error != std::errc() || stop != end) return std::nullopt;
  return number;
}

/// True for the folder of this process's open files, under whatever name.
bool listsOpenFiles(const std::string& folder) {
  std::error_code error;
  return std::filesystem::equivalent(folder, kOpenFilesFolder, error);
}

}  // namespace

std::optional<int> descriptorOf(const std::string& path) {
  constexpr int kMostLinks = 40;
  std::string name = path;
  for (int links = 0; links <= kMostLinks; ++links) {
    // The entries of that folder are links themselves: followed further, they would lead to the file behind.
    if (listsOpenFiles(folderOf(name))) return wholeNumber(GetFileName(name));
    std::error_code noLink;
    const std::filesystem::path next = std::filesystem::read_symlink(name, noLink);
    if (noLink) return std::nullopt;
    name = (std::filesystem::path(folderOf(name)) / next).string();
  }
  return std::nullopt;
}

std::string readFromDescriptor(int descriptor, std::size_t limit) {
  const OpenFile file(descriptor);
  if (!file.isOpen()) throw systemError(errno);
  return file.readToEnd(limit);
}

void writeToDescriptor(int descriptor, std::string_view bytes) {
  OpenFile file(descriptor);
  if (!file.isOpen()) throw systemError(errno);
  if (const int error = file.write(bytes)) throw systemError(error);
  if (const int error = file.close()) throw systemError(error);
}

}  // namespace vk
