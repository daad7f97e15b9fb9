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

/// Raises the error of a look at the disk, unless it says that there is nothing of that name.
void throwUnlessMissing(const std::error_code& error) {
  if (error && error != std::errc::no_such_file_or_directory && error != std::errc::not_a_directory) {
    throw systemError(error.value());
  }
}

/// True for the folder of this process's open files, under whatever name.
bool listsOpenFiles(const std::string& folder) {
  std::error_code error;
  const bool same = std::filesystem::equivalent(folder, kOpenFilesFolder, error);
  throwUnlessMissing(error);
  return same;
}

/// Where a link leads, nothing for what is no link.
std::optional<std::filesystem::path> targetOf(const std::string& link) {
  std::error_code error;
  std::filesystem::path target = std::filesystem::read_symlink(link, error);
  if (!error) return target;
  if (error != std::errc::invalid_argument) throwUnlessMissing(error);
  return std::nullopt;
}

}  // namespace

std::optional<int> descriptorOf(const std::string& path) {
  constexpr int kMostLinks = 40;
  std::string name = path;
  for (int links = 0; links <= kMostLinks; ++links) {
    // The entries of that folder are links themselves: followed further, they would lead to the file behind.
    if (listsOpenFiles(folderOf(name))) return wholeNumber(GetFileName(name));
    const auto next = targetOf(name);
    if (!next) return std::nullopt;
    name = (std::filesystem::path(folderOf(name)) / *next).string();
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
