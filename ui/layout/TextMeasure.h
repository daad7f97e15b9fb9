#pragma once

#include <string_view>

#include "base/Length.h"

namespace vk {

/// Sizes of texts in the font of a form. The only thing that layouts ask of a toolkit.
class TextMeasure {
 public:
  virtual ~TextMeasure() = default;
  /// Width of a text on one line.
  virtual Twips width(std::string_view text) const = 0;
  /// Height of a line.
  virtual Twips height() const = 0;
};

}  // namespace vk
