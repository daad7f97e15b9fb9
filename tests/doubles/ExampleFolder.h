#pragma once

#include <map>
#include <string>

namespace vk {

/// The files of the folder of samples that the program reads, by their names without folder.
std::map<std::string, std::string> exampleFiles();

}  // namespace vk
