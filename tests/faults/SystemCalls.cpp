#include "faults/SystemCalls.h"

#include <fcntl.h>
#include <sys/types.h>

#include <algorithm>
#include <cerrno>
#include <cstdarg>
#include <filesystem>
#include <type_traits>
#include <utility>

namespace vk {
namespace {

SystemCalls* watching = nullptr;

std::string pathOf(int handle) {
  std::error_code ignored;
  return std::filesystem::read_symlink("/proc/self/fd/" + std::to_string(handle), ignored).string();
}

/// The fault of a call on an open file or a path; null where there is none, or nobody watches. The number of the last
/// error stays as it is: a call that succeeds changes it in no way that the caller may see.
template <class Place>
const CallFault* faultOf(const char* name, const Place& place) {
  if (watching == nullptr) return nullptr;
  const int before = errno;
  std::string path;
  if constexpr (std::is_same_v<Place, int>) {
    path = pathOf(place);
  } else {
    path = place;
  }
  const CallFault* fault = watching->note(name, path);
  errno = before;
  return fault;
}

/// What a failed call gives.
int fails(const CallFault& fault) {
  errno = fault.error;
  return -1;
}

/// Moves bytes between a file and the memory: all, one, or none.
template <class Call, class Bytes>
ssize_t move(const char* name, const Call& call, int handle, Bytes* bytes, std::size_t count) {
  const CallFault* fault = faultOf(name, handle);
  if (fault == nullptr) return call(handle, bytes, count);
  if (fault->error == kOneByte) return call(handle, bytes, std::min<std::size_t>(count, 1));
  return fails(*fault);
}

}  // namespace

bool stopsASave(const SystemCall& call, int error, bool replaces) {
  const bool temporary = std::filesystem::path(call.path).filename().string().starts_with(".vor_kel-");
  const bool opens = call.name == "open";
  if (error == EINTR || error == kOneByte) return false;
  if (call.name == "close") return temporary;
  // A file that cannot be replaced is written itself.
  if (call.name == "rename" || (opens && temporary)) return !replaces;
  // Not every folder that takes files can be read, too.
  return !(opens && error == EACCES && std::filesystem::is_directory(call.path));
}

SystemCalls::SystemCalls(std::string folder, std::vector<CallFault> faults)
    : folder_(std::move(folder)), faults_(std::move(faults)) {
  watching = this;
}

SystemCalls::~SystemCalls() {
  watching = nullptr;
}

std::string SystemCalls::names() const {
  std::string names;
  for (const SystemCall& call : made_) names += (names.empty() ? "" : " ") + call.name;
  return names;
}

const CallFault* SystemCalls::note(const char* name, const std::string& path) {
  const char* inside = folder_ == kPipes ? "[" : "/";
  if (path != folder_ && !path.starts_with(folder_ + inside)) return nullptr;
  made_.push_back({name, path});
  for (const CallFault& fault : faults_) {
    const auto counts = [&](const SystemCall& call) { return fault.name.empty() || call.name == fault.name; };
    if (!counts(made_.back()) || std::ranges::count_if(made_, counts) != fault.number) continue;
    failed_.push_back(made_.back());
    return &fault;
  }
  return nullptr;
}

}  // namespace vk

// The names are the linker's.
extern "C" {

int __real_open(const char* path, int flags, ...);
ssize_t __real_read(int handle, void* bytes, std::size_t count);
ssize_t __real_write(int handle, const void* bytes, std::size_t count);
int __real_ftruncate(int handle, off_t size);
int __real_rename(const char* from, const char* to);
int __real_close(int handle);

int __wrap_open(const char* path, int flags, ...) {
  std::va_list words;
  va_start(words, flags);
  const mode_t mode = (flags & O_CREAT) != 0 ? va_arg(words, mode_t) : 0;
  va_end(words);
  const vk::CallFault* fault = vk::faultOf("open", std::string(path));
  return fault != nullptr ? vk::fails(*fault) : __real_open(path, flags, mode);
}

ssize_t __wrap_read(int handle, void* bytes, std::size_t count) {
  return vk::move("read", __real_read, handle, bytes, count);
}

ssize_t __wrap_write(int handle, const void* bytes, std::size_t count) {
  return vk::move("write", __real_write, handle, bytes, count);
}

// No test cuts the current, and most of the time of a save is the wait for the disk.
int __wrap_fsync(int handle) {
  const vk::CallFault* fault = vk::faultOf("fsync", handle);
  return fault != nullptr ? vk::fails(*fault) : 0;
}

int __wrap_ftruncate(int handle, off_t size) {
  const vk::CallFault* fault = vk::faultOf("ftruncate", handle);
  return fault != nullptr ? vk::fails(*fault) : __real_ftruncate(handle, size);
}

int __wrap_rename(const char* from, const char* to) {
  const vk::CallFault* fault = vk::faultOf("rename", std::string(to));
  return fault != nullptr ? vk::fails(*fault) : __real_rename(from, to);
}

int __wrap_close(int handle) {
  const vk::CallFault* fault = vk::faultOf("close", handle);
  const int result = __real_close(handle);
  return fault != nullptr ? vk::fails(*fault) : result;
}

}  // extern "C"
