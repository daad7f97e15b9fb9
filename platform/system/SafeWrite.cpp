#include "platform/system/SafeWrite.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <filesystem>
#include <optional>

#include "base/RuntimeError.h"
#include "platform/Files.h"
#include "platform/system/FileLookup.h"
#include "platform/system/Leftovers.h"
#include "platform/system/OpenFile.h"
#include "platform/system/SystemError.h"
#include "platform/system/Uninterrupted.h"

namespace vk {
namespace {

using FileStatus = struct stat;

constexpr mode_t kAnyWriteBit = 0222;
constexpr mode_t kPermissionBits = 07777;

std::optional<FileStatus> statusOf(const std::string& path) {
  FileStatus status{};
  if (::stat(path.c_str(), &status) != 0) return std::nullopt;
  return status;
}

bool isAllowed(const std::string& path, int access) {
  return ::faccessat(AT_FDCWD, path.c_str(), access, AT_EACCESS) == 0;
}

/// Without any write bit a file is meant to be kept, also where the system would let this user write it.
bool isProtected(const std::string& path, const FileStatus& status) {
  return (status.st_mode & kAnyWriteBit) == 0 || !isAllowed(path, W_OK);
}

[[noreturn]] void fail(int error) {
  throw systemError(error);
}

/// The folder of a name that the system knows, to which a backslash is a letter like any other.
std::filesystem::path parentOf(const std::string& path) {
  const auto parent = std::filesystem::path(path).parent_path();
  return parent.empty() ? "." : parent;
}

/// A name beside the file that nothing has yet.
std::string temporaryName(const std::string& path) {
  const std::string stem =
      (parentOf(path) / (std::string(kTemporaryStart) + std::to_string(::getpid()) + "-")).string();
  int number = 1;
  while (statusOf(stem + std::to_string(number))) ++number;
  return stem + std::to_string(number);
}

void keepOwnerAndMode(int handle, const FileStatus& old) {
  // Another owner stays only where the system lets this user give files away.
  const int ignored = ::fchown(handle, old.st_uid, old.st_gid);
  static_cast<void>(ignored);
  ::fchmod(handle, old.st_mode & kPermissionBits);
}

/// Makes the temporary file with the bytes; the system's error number, 0 when it is complete on the disk.
int fillTemporary(OpenFile& file, std::string_view bytes, const std::optional<FileStatus>& old) {
  if (old) keepOwnerAndMode(file.handle(), *old);
  if (const int error = file.write(bytes)) return error;
  if (const int error = file.sync()) return error;
  return file.close();
}

/// Waits until the names of a folder are on the disk. Those of a folder that cannot be listed come there in time.
void syncNames(const std::string& folder) {
  const OpenFile names(folder, O_RDONLY | O_DIRECTORY);
  if (!names.isOpen() && errno == EACCES) return;
  if (const int error = names.isOpen() ? names.sync() : errno) fail(error);
}

/// Gives a file another name, in place of one that has it; the number of the system's error, 0 when it is done.
int moveOver(const std::string& from, const std::string& to) {
  return uninterrupted([&] { return ::rename(from.c_str(), to.c_str()); }) == 0 ? 0 : errno;
}

/// Gives the system's error number when the folder refuses a new file or the change of names, 0 when the file
/// has been replaced. Bytes that cannot be stored are an error at once.
int replaceFile(const std::string& path, std::string_view bytes, const std::optional<FileStatus>& old) {
  removeLeftovers(parentOf(path).string());
  const std::string temporary = temporaryName(path);
  OpenFile file(temporary, O_WRONLY | O_CREAT | O_EXCL);
  if (!file.isOpen()) return errno;
  file.lock();  // so that nobody takes it for a leftover
  const int unwritten = fillTemporary(file, bytes, old);
  const int refused = unwritten == 0 ? moveOver(temporary, path) : 0;
  if (unwritten != 0 || refused != 0) ::unlink(temporary.c_str());
  if (unwritten != 0) fail(unwritten);
  if (refused == 0) syncNames(parentOf(path).string());
  return refused;
}

/// Puts a file back as it was, as far as it was read.
void putBack(const std::string& path, std::string_view before, const FileStatus& old) {
  const OpenFile file(path, O_WRONLY);
  file.write(before);
  file.resize(static_cast<std::size_t>(old.st_size));
}

/// Reserves the space of a longer content before the old one is touched.
void reserve(const OpenFile& file, const FileStatus& old, std::string_view bytes) {
  const auto size = static_cast<std::size_t>(old.st_size);
  if (bytes.size() <= size) return;
  if (const int error = file.reserve(bytes.size())) {
    file.resize(size);
    fail(error);
  }
}

/// The bytes of a file that is about to be written; none where it cannot be read.
std::string bytesBefore(const std::string& path, const FileStatus& old) {
  const OpenFile file(path, O_RDONLY | O_NONBLOCK);
  return file.isOpen() ? file.readToEnd(static_cast<std::size_t>(old.st_size)) : std::string();
}

void writeOver(const std::string& path, std::string_view bytes, const FileStatus& old) {
  const std::string before = bytesBefore(path, old);
  OpenFile file(path, O_WRONLY);
  if (!file.isOpen()) fail(errno);
  reserve(file, old, bytes);
  int error = file.write(bytes);
  if (error == 0) error = file.resize(bytes.size());
  if (error == 0) error = file.sync();
  if (error == 0) error = file.close();
  if (error == 0) return;
  putBack(path, before, old);
  fail(error);
}

void writeInto(const std::string& stream, std::string_view bytes) {
  OpenFile file(stream, O_WRONLY);
  if (!file.isOpen()) fail(errno);
  if (const int error = file.write(bytes)) fail(error);
  if (const int error = file.close()) fail(error);
}

/// The name that a write to a missing file makes: the one at the end of all links, so that these stay.
std::string endOfLinks(std::string path) {
  constexpr int kMostLinks = 40;
  for (int links = 0; links <= kMostLinks; ++links) {
    std::error_code noLink;
    const std::filesystem::path next = std::filesystem::read_symlink(path, noLink);
    if (noLink) return path;
    path = (parentOf(path) / next).string();
  }
  fail(ELOOP);
}

/// The file behind a link, so that the link itself stays.
std::string behindLinks(const std::string& path) {
  std::error_code error;
  const auto real = std::filesystem::canonical(path, error);
  return error ? path : real.string();
}

}  // namespace

bool isWritableFile(const std::string& path) {
  const auto status = statusOf(path);
  if (status) return !S_ISDIR(status->st_mode) && !isProtected(path, *status);
  return errno == ENOENT && !GetFileName(path).empty() &&
         isWritableDirectory(parentOf(endOfLinks(path)).string());
}

bool isWritableDirectory(const std::string& folder) {
  const auto status = statusOf(folder);
  return status && S_ISDIR(status->st_mode) && isAllowed(folder, W_OK | X_OK);
}

void writeSafely(const std::string& path, std::string_view bytes) {
  const auto old = statusOf(path);
  if (!old && errno == ELOOP) fail(ELOOP);
  if (GetFileName(path).empty() || (old && (S_ISDIR(old->st_mode) || isProtected(path, *old)))) fail(EACCES);
  if (old && !S_ISREG(old->st_mode)) return writeInto(path, bytes);
  const std::string target = old ? behindLinks(path) : endOfLinks(path);
  const int error = replaceFile(target, bytes, old);
  if (error == 0) return;
  if (!old) fail(error);
  writeOver(target, bytes, *old);
}

}  // namespace vk
