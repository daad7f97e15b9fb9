#pragma once

#include <string_view>

namespace vk {

/// Sizes of texts in the font of a form, in twips. The only thing that layouts ask of a toolkit.
class TextMeasure {
 public:
  virtual ~TextMeasure() = default;
  /// Width of a text on one line.
  virtual int width(std::string_view text) const = 0;
  /// Height of a line.
  virtual int height() const = 0;
};

}  // namespace vk
