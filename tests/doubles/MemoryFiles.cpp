#include "doubles/MemoryFiles.h"

#include "base/RuntimeError.h"
#include "base/Text.h"

namespace vk {

std::string MemoryFiles::find(const std::string& path) const {
  if (content.contains(path)) return path;
  for (const auto& [name, bytes] : content) {
    if (equalIgnoringCase(name, path)) return name;
  }
  return {};
}

std::int64_t MemoryFiles::size(const std::string& path) {
  return static_cast<std::int64_t>(bytesOf(path).size());
}

std::string MemoryFiles::readAll(const std::string& path) {
  read.push_back(path);
  return bytesOf(path);
}

const std::string& MemoryFiles::bytesOf(const std::string& path) const {
  if (const auto error = readError.find(path); error != readError.end()) throw RuntimeError(error->second);
  const std::string name = find(path);
  if (name.empty()) throw RuntimeError(kFileNotFound);
  return content.at(name);
}

void MemoryFiles::writeAll(const std::string& path, std::string_view bytes) {
  if (const auto error = writeError.find(path); error != writeError.end()) throw RuntimeError(error->second);
  if (!canWrite(path)) throw RuntimeError(kPathAccessError);
  const std::string name = find(path);
  content[name.empty() ? path : name] = std::string(bytes);
  written.push_back(path);
}

bool MemoryFiles::canWrite(const std::string& path) {
  return !notWritable.contains(path);
}

}  // namespace vk
