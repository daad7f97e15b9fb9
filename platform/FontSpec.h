#pragma once

#include <string>

namespace vk {

/// A font of the forms.
struct FontSpec {
  std::string face;
  int size;  ///< points
  bool bold = false;
};

}  // namespace vk
