#pragma once

#include <string>
#include <vector>

namespace vk {

/// The documents folder named by the text of a "user-dirs.dirs" file, where "$HOME" stands for `home`; empty
/// when it names none.
std::string documentsFolderOf(const std::string& userDirs, const std::string& home);

/// The mount points of a "/proc/mounts" text that a user knows as volumes: those below /media, /run/media,
/// /mnt and the home folder, hidden ones left out, sorted.
std::vector<std::string> volumesOf(const std::string& mounts, const std::string& home);

}  // namespace vk
