#include "platform/Files.h"

#include <algorithm>

namespace vk {
namespace {

constexpr std::string_view kSeparators = "/\\";

}  // namespace

std::string GetFileName(std::string_view path) {
  return std::string(path.substr(path.find_last_of(kSeparators) + 1));
}

std::string GetExtensionName(std::string_view path) {
  const std::string name = GetFileName(path);
  const auto point = name.rfind('.');
  return point == std::string::npos ? std::string() : name.substr(point + 1);
}

std::string folderOf(std::string_view path) {
  const auto separator = path.find_last_of(kSeparators);
  if (separator == std::string_view::npos) return ".";
  return std::string(path.substr(0, std::max<std::size_t>(separator, 1)));
}

std::string joinPath(std::string_view folder, std::string_view name) {
  const bool bare = folder.empty() || kSeparators.find(folder.back()) != std::string_view::npos;
  return std::string(folder) + (bare ? "" : "/") + std::string(name);
}

}  // namespace vk
