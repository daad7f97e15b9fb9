#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace vk {

/// A text cut at its line ends. The views point into the text, which must stay.
struct TextLines {
  std::vector<std::string_view> lines;  ///< what stands before each line end
  std::string_view rest;                ///< what stands behind the last one; a line without an end
};

/// Cuts a text at each pair of carriage return and line feed; any other CR or LF is an ordinary character. In a
/// text without any carriage return each line feed ends a line.
TextLines splitLines(std::string_view text);

/// A line of a data file without the blanks at its ends, each tab in it as one blank.
std::string cleanLine(std::string_view line);

/// True for a cleaned line that is empty or begins with "%". A line that holds a tab is never empty, and a tab
/// before the "%" makes it text.
bool isComment(std::string_view cleanedLine);

}  // namespace vk
