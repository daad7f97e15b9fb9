#include "doubles/Places.h"

namespace vk {

std::string sourcePath(const std::string& relative) {
  return std::string(VOR_SOURCE_DIR) + "/" + relative;
}

std::string builtPath(const std::string& relative) {
  return std::string(VOR_BINARY_DIR) + "/" + relative;
}

}  // namespace vk
