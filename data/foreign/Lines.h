#pragma once

#include <span>
#include <string_view>
#include <vector>

namespace vk {

/// A line of a foreign text.
struct ForeignLine {
  int number = 0;         ///< in the file, from 1
  std::string_view text;  ///< without blanks at its ends; never empty
};

/// The lines that are not blank. CR, LF and the pair end a line, also mixed. A line end within quotes belongs to its
/// cell. The views point into the text.
std::vector<ForeignLine> splitLines(std::string_view text);

/// The first lines and some of all others, by which a table is judged: a long preamble must not hide it.
std::vector<ForeignLine> sampleOf(std::span<const ForeignLine> lines);

/// The text of a comment behind its sign: "%", "#", "//" or, where it separates no cells, ";". Empty for a line that
/// is none; a comment without words is its own sign.
std::string_view commentIn(std::string_view line, char separator);

}  // namespace vk
