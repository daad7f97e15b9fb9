#include "platform/system/SafeWrite.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <filesystem>
#include <optional>

#include "base/RuntimeError.h"
#include "platform/Files.h"
#include "platform/system/FileLookup.h"

namespace vk {
namespace {

using FileStatus = struct stat;

constexpr mode_t kAnyWriteBit = 0222;
constexpr mode_t kNewFileMode = 0666;  // the process's mask takes from it
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
  switch (error) {
    case ENOENT:
    case ENOTDIR:
      throw RuntimeError(kPathNotFound);
    case EACCES:
    case EPERM:
    case EROFS:
    case EISDIR:
    case ETXTBSY:
    case ENAMETOOLONG:
      throw RuntimeError(kPathAccessError);
    default:
      throw RuntimeError(kDeviceIoError);
  }
}

/// An open file of the system; closed at the end of the scope.
class OpenFile {
 public:
  OpenFile(const std::string& path, int flags)
      : handle_(::open(path.c_str(), flags | O_CLOEXEC, kNewFileMode)) {}
  ~OpenFile() {
    if (handle_ >= 0) ::close(handle_);
  }
  OpenFile(const OpenFile&) = delete;
  OpenFile& operator=(const OpenFile&) = delete;

  int handle() const { return handle_; }
  bool isOpen() const { return handle_ >= 0; }

  /// The number of the system's error, 0 when all bytes were taken.
  int write(std::string_view bytes) const {
    while (!bytes.empty()) {
      const ssize_t count = ::write(handle_, bytes.data(), bytes.size());
      if (count < 0 && errno != EINTR) return errno;
      if (count > 0) bytes.remove_prefix(static_cast<std::size_t>(count));
    }
    return 0;
  }
  /// Some devices report a full disk only here.
  int close() {
    const int result = ::close(handle_);
    handle_ = -1;
    return result == 0 ? 0 : errno;
  }

 private:
  int handle_;
};

/// A name beside the file that nothing has yet.
std::string temporaryName(const std::string& path) {
  const std::string stem = joinPath(folderOf(path), ".vor_kel-" + std::to_string(::getpid()) + "-");
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
  if (::fsync(file.handle()) != 0) return errno;
  return file.close();
}

/// Gives the system's error number when the folder refuses a new file or the change of names, 0 when the file
/// has been replaced. Bytes that cannot be stored are an error at once.
int replaceFile(const std::string& path, std::string_view bytes, const std::optional<FileStatus>& old) {
  const std::string temporary = temporaryName(path);
  OpenFile file(temporary, O_WRONLY | O_CREAT | O_EXCL);
  if (!file.isOpen()) return errno;
  const int unwritten = fillTemporary(file, bytes, old);
  if (unwritten == 0 && ::rename(temporary.c_str(), path.c_str()) == 0) return 0;
  const int refused = errno;
  ::unlink(temporary.c_str());
  if (unwritten != 0) fail(unwritten);
  return refused;
}

/// Reserves the space of a longer content before the old one is touched.
void reserve(const OpenFile& file, const FileStatus& old, std::string_view bytes) {
  const auto wanted = static_cast<off_t>(bytes.size());
  if (!S_ISREG(old.st_mode) || wanted <= old.st_size) return;
  if (const int error = ::posix_fallocate(file.handle(), 0, wanted)) {
    const int ignored = ::ftruncate(file.handle(), old.st_size);
    static_cast<void>(ignored);
    fail(error);
  }
}

void writeInPlace(const std::string& path, std::string_view bytes, const FileStatus& old) {
  OpenFile file(path, O_WRONLY);
  if (!file.isOpen()) fail(errno);
  reserve(file, old, bytes);
  if (const int error = file.write(bytes)) fail(error);
  if (S_ISREG(old.st_mode) && ::ftruncate(file.handle(), static_cast<off_t>(bytes.size())) != 0) fail(errno);
  if (const int error = file.close()) fail(error);
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
  const bool missing = !status && errno == ENOENT;
  if (missing) return !GetFileName(path).empty() && isWritableDirectory(folderOf(path));
  return status && !S_ISDIR(status->st_mode) && !isProtected(path, *status);
}

bool isWritableDirectory(const std::string& folder) {
  const auto status = statusOf(folder);
  return status && S_ISDIR(status->st_mode) && isAllowed(folder, W_OK | X_OK);
}

void writeSafely(const std::string& path, std::string_view bytes) {
  const std::string target = behindLinks(path);
  const auto old = statusOf(target);
  if (GetFileName(target).empty() || (old && (S_ISDIR(old->st_mode) || isProtected(target, *old)))) {
    fail(EACCES);
  }
  if (old && !S_ISREG(old->st_mode)) return writeInPlace(target, bytes, *old);
  const int error = replaceFile(target, bytes, old);
  if (error == 0) return;
  if (!old) fail(error);
  writeInPlace(target, bytes, *old);
}

}  // namespace vk
