#pragma once

#include <string_view>
#include <vector>

namespace vk {

/// A character of a text with markup, as it is to be printed.
struct MarkupLetter {
  enum class Level : signed char { kSubscript = -1, kNormal = 0, kSuperscript = 1 };
  char character;
  Level level = Level::kNormal;
  bool symbol = false;  ///< from the Symbol font
  bool operator==(const MarkupLetter&) const = default;
};

/// The characters of a text that print. "^" raises and "_" lowers the next character, or the next group in
/// braces; two backslashes take it from the Symbol font. A group ends at the first "}"; groups do not nest.
std::vector<MarkupLetter> readMarkup(std::string_view text);

}  // namespace vk
