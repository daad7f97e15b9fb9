#pragma once

#include <string>

namespace vk {

/// A font of the forms.
struct FontSpec {
  std::string face;
  int size;     ///< points
  int charset;  ///< 0 the text character set, 255 that of the character screens
  bool bold = false;
};

}  // namespace vk
