#pragma once

#include <string>
#include <string_view>

/// Text helpers. A text is a string of 8-bit characters; positions are 1-based, 0 means "not found".
namespace vk {

/// The line end of every file and report: carriage return and line feed.
inline constexpr std::string_view kCrLf = "\r\n";

/// The text without leading, trailing, or both kinds of blanks. Only blanks count: tabs stay.
std::string trimLeft(std::string_view text);
std::string trimRight(std::string_view text);
std::string trim(std::string_view text);

/// Letters a to z in capitals; all other characters, accented letters included, stay.
std::string upper(std::string_view text);
inline char upper(char c) {
  return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c;
}

/// True for A to Z in either case.
inline bool isLetter(char c) {
  return upper(c) >= 'A' && upper(c) <= 'Z';
}
inline bool isDigit(char c) {
  return c >= '0' && c <= '9';
}

/// The first or last `count` characters, the whole text when it is shorter, empty for count <= 0.
std::string left(std::string_view text, int count);
std::string right(std::string_view text, int count);
/// The text itself as far as it has at most `count` characters, else its two ends with "..." between them.
std::string shortened(std::string_view text, int count);
/// `count` characters from 1-based `start`, as far as there are any; without a count all the rest.
std::string mid(std::string_view text, int start, int count);
std::string mid(std::string_view text, int start);

/// 1-based position of `what` in `text` at or after `start`; 0 when it is not there.
int position(std::string_view text, std::string_view what, int start = 1);

/// `count` times the character; empty for count <= 0.
std::string repeat(int count, char c);

/// The length as int.
inline int length(std::string_view text) {
  return static_cast<int>(text.size());
}

/// The code 0..255 of a character.
inline int code(char c) {
  return static_cast<unsigned char>(c);
}

/// True when both texts are the same but for the case of the letters a to z.
bool equalIgnoringCase(std::string_view a, std::string_view b);

}  // namespace vk
