#include "platform/system/Places.h"

#include <algorithm>
#include <sstream>

#include "base/Text.h"

namespace vk {
namespace {

/// Blanks and the like stand as three octal digits behind a "\".
std::string withoutOctalCodes(const std::string& text) {
  const auto octal = [&](std::size_t at) { return text[at] >= '0' && text[at] <= '7'; };
  std::string plain;
  for (std::size_t at = 0; at < text.size(); ++at) {
    if (text[at] == '\\' && at + 3 < text.size() && octal(at + 1) && octal(at + 2) && octal(at + 3)) {
      const int byte = (text[at + 1] - '0') * 64 + (text[at + 2] - '0') * 8 + (text[at + 3] - '0');
      plain += static_cast<char>(byte);
      at += 3;
    } else {
      plain += text[at];
    }
  }
  return plain;
}

bool isVolume(const std::string& mountPoint, const std::string& home) {
  if (mountPoint.find("/.") != std::string::npos) return false;
  const std::vector<std::string> roots{"/media/", "/run/media/", "/mnt/"};
  const auto below = [&](const std::string& root) { return (mountPoint + "/").starts_with(root); };
  return std::any_of(roots.begin(), roots.end(), below) || (length(home) > 1 && below(home + "/"));
}

}  // namespace

std::string documentsFolderOf(const std::string& userDirs, const std::string& home) {
  constexpr std::string_view kKey = "XDG_DOCUMENTS_DIR=\"";
  constexpr std::string_view kHome = "$HOME";
  std::istringstream lines(userDirs);
  for (std::string line; std::getline(lines, line);) {
    const auto end = line.rfind('"');
    if (!line.starts_with(kKey) || end < kKey.size()) continue;
    const std::string folder = line.substr(kKey.size(), end - kKey.size());
    return folder.starts_with(kHome) ? home + folder.substr(kHome.size()) : folder;
  }
  return {};
}

std::vector<std::string> volumesOf(const std::string& mounts, const std::string& home) {
  std::vector<std::string> volumes;
  std::istringstream lines(mounts);
  for (std::string device, mountPoint, rest; lines >> device >> mountPoint && std::getline(lines, rest);) {
    mountPoint = withoutOctalCodes(mountPoint);
    if (isVolume(mountPoint, home)) volumes.push_back(mountPoint);
  }
  std::sort(volumes.begin(), volumes.end());
  volumes.erase(std::unique(volumes.begin(), volumes.end()), volumes.end());
  return volumes;
}

}  // namespace vk
