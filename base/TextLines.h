#pragma once

#include <algorithm>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace vk {

/// Walks over the lines of a text without copying it: the views point into the text, which must stay.
///
/// A line ends at each pair of carriage return and line feed; any other CR or LF is an ordinary character. In a
/// text without any carriage return each line feed ends a line. What stands behind the last line end is a line as
/// well, unless it is empty.
class TextLines {
 public:
  explicit TextLines(std::string_view text);

  /// The next line without its end; nothing behind the last one.
  std::optional<std::string_view> next();

  /// What ends the lines of this text.
  std::string_view lineEnd() const { return lineEnd_; }

 private:
  std::string_view rest_;
  std::string_view lineEnd_;
};

/// Takes the first field out of the front of `rest`: what stands between characters for which `separates` holds.
/// Empty when there is none left.
template <class Separates>
std::string_view takeField(std::string_view& rest, Separates separates) {
  const auto start = std::find_if_not(rest.begin(), rest.end(), separates);
  const auto end = std::find_if(start, rest.end(), separates);
  rest = {end, rest.end()};
  return {start, end};
}

/// The text in lines of at most `width` characters, divided at blanks; all but the first one indented. A longer word
/// has a line of its own.
std::vector<std::string> wrapped(const std::string& text, int width);

/// The line without the blanks at its ends. Only blanks count: tabs stay.
std::string_view trimmedLine(std::string_view line);

/// A line of a data file as its readers take it: without the blanks at its ends, each tab in it as one blank.
std::string cleanLine(std::string_view line);

/// True for a line of a data file that is blank or begins, behind blanks, with "%". A tab makes it text: a line
/// that holds one is never blank, and a "%" behind it begins no comment.
bool isComment(std::string_view line);

}  // namespace vk
