#pragma once

#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>
#include <utility>

#include "base/CodePage.h"

namespace vk {

/// A text of 8-bit characters that bears its code page as it crosses a port: a text of one code page is never taken
/// for one of another. Inside, texts are plain bytes.
template <CodePage page>
class EncodedText {
 public:
  constexpr EncodedText() = default;
  /// A constant of ASCII characters, which are the same in all code pages; any other one does not compile.
  consteval EncodedText(const char* ascii) : constant_(ascii) {
    for (const char c : constant_) {
      if (static_cast<unsigned char>(c) >= 0x80) throw std::invalid_argument("not in ASCII");
    }
  }
  /// Bytes of which the caller knows the code page.
  explicit EncodedText(std::string bytes) : composed_(std::move(bytes)) {}

  /// The bytes, as long as the text lives.
  constexpr std::string_view bytes() const { return composed_ ? std::string_view(*composed_) : constant_; }

  friend bool operator==(const EncodedText& a, const EncodedText& b) { return a.bytes() == b.bytes(); }
  friend EncodedText operator+(const EncodedText& a, const EncodedText& b) {
    return EncodedText(std::string(a.bytes()).append(b.bytes()));
  }

 private:
  // What is checked while it compiles can only be pointed to.
  std::string_view constant_{};
  std::optional<std::string> composed_{};
};

/// A text of character grids, lists and the editor.
using Cp437Text = EncodedText<CodePage::kCp437>;

/// A text of menus, captions and boxes. File names in it are the system's own bytes.
using WindowText = EncodedText<CodePage::kWindows1252>;

/// A plain text that bears its encoding: code page 437, or UTF-8, which has a place for every letter.
class PlainText {
 public:
  PlainText() = default;
  PlainText(const Cp437Text& text) : bytes_(text.bytes()) {}
  PlainText(std::string bytes, bool isUtf8) : bytes_(std::move(bytes)), isUtf8_(isUtf8) {}

  /// The bytes, as long as the text lives.
  std::string_view bytes() const { return bytes_; }
  bool isUtf8() const { return isUtf8_; }

 private:
  std::string bytes_;
  bool isUtf8_ = false;
};

/// The text in UTF-8, for terminals and files of other programs.
template <CodePage page>
std::string toUtf8(const EncodedText<page>& text) {
  return toUtf8(text.bytes(), page);
}

}  // namespace vk
