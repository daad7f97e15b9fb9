#pragma once

#include <string>

namespace vk {

/// The path of the entry that a user means by `path`, with "/" between folders: the exact name where it
/// exists; else, name by name, an entry that is equal ignoring case, the exact one before others; among
/// several paths the first that leads to the end. Empty when there is no such entry. Never fails.
std::string findEntry(const std::string& path);

/// Where a file of this name is or would be made: the entry found, else the folder found with the name as it
/// stands. A folder that is not found stays as it is written, with "/" between its names.
std::string resolveForWriting(const std::string& path);

}  // namespace vk
