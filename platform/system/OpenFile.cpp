#include "platform/system/OpenFile.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <array>
#include <cerrno>

#include "base/RuntimeError.h"
#include "platform/system/SystemError.h"
#include "platform/system/Uninterrupted.h"

namespace vk {
namespace {

constexpr mode_t kNewFileMode = 0666;  // the process's mask takes from it

/// How many bytes a file says it has; pipes and the like say nothing.
std::size_t announcedSize(int handle) {
  struct stat status {};
  const bool known = ::fstat(handle, &status) == 0 && S_ISREG(status.st_mode);
  return known ? static_cast<std::size_t>(status.st_size) : 0;
}

}  // namespace

OpenFile::OpenFile(const std::string& path, int flags)
    : handle_(uninterrupted([&] { return ::open(path.c_str(), flags | O_CLOEXEC, kNewFileMode); })) {}

OpenFile::OpenFile(int descriptor) : handle_(::fcntl(descriptor, F_DUPFD_CLOEXEC, 0)) {}

OpenFile::~OpenFile() {
  if (handle_ >= 0) ::close(handle_);
}

bool OpenFile::isRegular() const {
  struct stat status {};
  return ::fstat(handle_, &status) == 0 && S_ISREG(status.st_mode);
}

bool OpenFile::lock() const {
  return ::flock(handle_, LOCK_EX | LOCK_NB) == 0;
}

std::string OpenFile::readToEnd(std::size_t limit) const {
  const std::size_t announced = announcedSize(handle_);
  if (announced > limit) throw RuntimeError(kDeviceIoError);
  std::string bytes;
  bytes.reserve(announced);
  std::array<char, 1 << 16> buffer;
  for (;;) {
    const ssize_t count = uninterrupted([&] { return ::read(handle_, buffer.data(), buffer.size()); });
    if (count == 0) return bytes;
    if (count < 0) throw systemError(errno);
    bytes.append(buffer.data(), static_cast<std::size_t>(count));
    if (bytes.size() > limit) throw RuntimeError(kDeviceIoError);
  }
}

int OpenFile::write(std::string_view bytes) const {
  while (!bytes.empty()) {
    const ssize_t count = uninterrupted([&] { return ::write(handle_, bytes.data(), bytes.size()); });
    if (count < 0) return errno;
    bytes.remove_prefix(static_cast<std::size_t>(count));
  }
  return 0;
}

int OpenFile::sync() const {
  const bool done = uninterrupted([&] { return ::fsync(handle_); }) == 0;
  return done || errno == EINVAL ? 0 : errno;
}

int OpenFile::reserve(std::size_t size) const {
  int error = 0;
  do error = ::posix_fallocate(handle_, 0, static_cast<off_t>(size));
  while (error == EINTR);
  return error;
}

int OpenFile::resize(std::size_t size) const {
  return uninterrupted([&] { return ::ftruncate(handle_, static_cast<off_t>(size)); }) == 0 ? 0 : errno;
}

int OpenFile::close() {
  const int result = ::close(handle_);
  handle_ = -1;
  // The number is free also after a closing that a signal breaks off; again, it could close what somebody else opened.
  return result == 0 || errno == EINTR ? 0 : errno;
}

}  // namespace vk
