#include "platform/system/SystemFiles.h"

#include <fcntl.h>
#include <pwd.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstdlib>
#include <filesystem>
#include <optional>

#include "base/RuntimeError.h"
#include "base/Text.h"
#include "platform/system/Descriptors.h"
#include "platform/system/FileLookup.h"
#include "platform/system/FolderEntries.h"
#include "platform/system/OpenFile.h"
#include "platform/system/Places.h"
#include "platform/system/SafeWrite.h"
#include "platform/system/SystemError.h"
#include "platform/system/Terminal.h"

namespace vk {
namespace {

namespace fs = std::filesystem;

bool isFolder(const std::string& path) {
  std::error_code ignored;
  return fs::is_directory(path, ignored);
}

/// True where the system tells nothing of a name because a folder on the way is closed to this user, or links lead in a
/// circle.
bool isRefused(const std::string& path) {
  struct stat status {};
  return ::stat(path.c_str(), &status) != 0 && (errno == EACCES || errno == ELOOP);
}

/// True where the search for an entry that was not found ended at one that is refused.
bool endsRefused(const std::string& path) {
  if (isRefused(path)) return true;
  const std::string written = folderOf(path);
  if (written == path) return false;
  const std::string folder = findEntry(written);
  return folder.empty() ? endsRefused(written) : isRefused(joinPath(folder, GetFileName(path)));
}

/// The entry to be read; a missing one is told apart by its folder.
std::string entryToRead(const std::string& path) {
  std::string entry = findEntry(path);
  if (entry.empty()) {
    if (endsRefused(path)) throw RuntimeError(kPermissionDenied, kAccessDenied);
    throw RuntimeError(isFolder(findEntry(folderOf(path))) ? kFileNotFound : kPathNotFound);
  }
  if (isFolder(entry)) throw RuntimeError(kPathAccessError, kIsFolder);
  return entry;
}

std::string readEntry(const std::string& entry, std::size_t limit, Streams streams) {
  const bool anything = streams == Streams::kTaken;
  // Nobody is to wait for the other end of a pipe that is refused anyway.
  const OpenFile file(entry, O_RDONLY | (anything ? 0 : O_NONBLOCK));
  if (!file.isOpen()) {
    throw errno == EACCES ? RuntimeError(kPermissionDenied, kAccessDenied) : RuntimeError(kDeviceIoError);
  }
  if (!anything && !file.isRegular()) throw RuntimeError(kDeviceIoError);
  return file.readToEnd(limit);
}

/// True for what is neither file nor folder.
bool isStream(const std::string& path) {
  std::error_code ignored;
  return fs::is_other(path, ignored);
}

std::string homeFolder() {
  if (const char* home = std::getenv("HOME"); home != nullptr && *home != '\0') return home;
  const passwd* user = ::getpwuid(::getuid());
  return user != nullptr ? user->pw_dir : "/";
}

std::string configFolder() {
  const char* folder = std::getenv("XDG_CONFIG_HOME");
  return folder != nullptr && *folder == '/' ? folder : joinPath(homeFolder(), ".config");
}

/// The content of a file of the system; empty when there is none.
std::string textOfSystem(const std::string& path) {
  try {
    return readEntry(path, SystemFiles::kLargestFile, Streams::kRefused);
  } catch (const RuntimeError&) {
    return {};
  }
}

bool comesBefore(const std::string& a, const std::string& b) {
  return std::pair(upper(a), a) < std::pair(upper(b), b);
}

}  // namespace

bool SystemFiles::FileExists(const std::string& path) {
  const std::string entry = findEntry(path);
  return !entry.empty() && !isFolder(entry);
}

std::int64_t SystemFiles::size(const std::string& path) {
  std::error_code error;
  const auto bytes = fs::file_size(entryToRead(path), error);
  if (error) throw RuntimeError(kDeviceIoError);
  return static_cast<std::int64_t>(bytes);
}

std::string SystemFiles::readAll(const std::string& path) {
  const std::string entry = entryToRead(path);
  std::error_code unknown;
  const auto bytes = fs::file_size(entry, unknown);
  if (onLongRead && !unknown && bytes >= kLongFile) onLongRead();
  return readEntry(entry, largestFile_, streams_);
}

void SystemFiles::writeAll(const std::string& path, std::string_view bytes) {
  const std::string entry = resolveForWriting(path);
  if (refuses(entry)) throw RuntimeError(kDeviceIoError);
  if (isFolder(entry)) throw RuntimeError(kPathAccessError, kIsFolder);
  const auto descriptor = streams_ == Streams::kTaken ? descriptorOf(entry) : std::nullopt;
  if (descriptor) return writeToDescriptor(*descriptor, bytes);
  writeSafely(entry, bytes);
}

bool SystemFiles::canWrite(const std::string& path) {
  const std::string entry = resolveForWriting(path);
  return !refuses(entry) && isWritableFile(entry);
}

bool SystemFiles::refuses(const std::string& entry) const {
  return streams_ == Streams::kRefused && isStream(entry);
}

std::string SystemFiles::programFolder() {
  std::error_code error;
  const fs::path program = fs::read_symlink("/proc/self/exe", error);
  return error ? currentFolder() : program.parent_path().string();
}

std::string SystemFiles::documentsFolder() {
  std::string home = homeFolder();
  const std::string named = documentsFolderOf(textOfSystem(joinPath(configFolder(), "user-dirs.dirs")), home);
  for (const std::string& folder : {named, joinPath(home, "Documents")}) {
    if (isFolder(folder)) return folder;
  }
  return home;
}

std::string SystemFiles::currentFolder() {
  std::error_code error;
  const fs::path folder = fs::current_path(error);
  return error ? "/" : folder.string();
}

bool SystemFiles::startedAtTerminal() {
  return belongsToTerminal();
}

bool SystemFiles::isWritableFolder(const std::string& folder) {
  return isWritableDirectory(findEntry(folder));
}

std::vector<std::string> SystemFiles::drives() {
  std::vector<std::string> places{"/"};
  for (const std::string& volume : volumesOf(textOfSystem("/proc/self/mounts"), homeFolder())) {
    places.push_back(volume);
  }
  return places;
}

std::vector<std::string> SystemFiles::subfolders(const std::string& folder) {
  const std::string entry = findEntry(folder);
  auto names = entriesOf(entry);
  if (!names) throw RuntimeError(kPathNotFound);
  std::erase_if(*names, [&](const std::string& name) {
    return name.starts_with('.') || !isFolder(joinPath(entry, name));
  });
  std::sort(names->begin(), names->end(), comesBefore);
  return *std::move(names);
}

}  // namespace vk
