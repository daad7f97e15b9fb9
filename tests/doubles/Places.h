#pragma once

#include <string>

namespace vk {

/// A path below the root of the sources, such as "examples/ohm.dat".
std::string sourcePath(const std::string& relative);

/// A path below the folder that the present build was made in.
std::string builtPath(const std::string& relative);

}  // namespace vk
