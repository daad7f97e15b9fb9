#pragma once

#include <string>
#include <string_view>

namespace vk {

/// The bytes of a data, function or graphic file, and how they stand for characters. Bytes above 127 are UTF-8 where
/// all of them are valid in it; else the file is an old one of 8-bit signs, code page 437.
class FileText {
 public:
  /// The bytes must stay.
  explicit FileText(std::string_view bytes);

  /// The text as it stands in the file; in UTF-8 without a byte order mark.
  std::string_view text() const { return text_; }
  /// False for a file of 8-bit signs, and for one in ASCII, where there is nothing to tell.
  bool isUtf8() const { return utf8_; }
  /// The line, from 1, of the first byte that makes this a file of 8-bit signs; 0 for any other file.
  int lineOfSign() const;

  /// A piece of the file as character grids show it: code page 437, in UTF-8 by `gridTextOfUtf8`.
  std::string gridText(std::string_view piece) const;

 private:
  std::string_view text_;
  bool utf8_ = false;
};

/// A text in UTF-8 in code page 437, with `typedFor` in place of what that lacks. Bytes that are no UTF-8
/// stay.
std::string gridTextOfUtf8(std::string_view utf8);

/// What is typed in ASCII for a character above 127, "E`" for example; "?" for most.
std::string typedFor(char32_t c);

}  // namespace vk
