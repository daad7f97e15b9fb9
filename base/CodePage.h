#pragma once

#include <optional>
#include <string>
#include <string_view>

/// The character sets of the 8-bit texts, by tables of our own: the same on every system. Only the edge of
/// the program converts; everything inside stays 8-bit.
namespace vk {

enum class CodePage {
  kCp437,        ///< character grids, selection lists, the editor and its palette
  kWindows1252,  ///< menus, captions, the text font of figures
  kSymbol,       ///< the Greek and mathematical font of figures; codes without a sign give U+FFFD
};

/// The Unicode character of a byte. Code pages 437 and Windows-1252 map each byte to a character of its own.
char32_t toUnicode(char c, CodePage page);
std::u32string toUnicode(std::string_view text, CodePage page);

/// The byte of a Unicode character; nothing when the code page has no place for it.
std::optional<char> fromUnicode(char32_t c, CodePage page);

/// The text in UTF-8, for terminals and files of other programs.
std::string toUtf8(std::string_view text, CodePage page);

/// Puts a character in UTF-8 behind a text.
void appendUtf8(std::string& out, char32_t c);

/// How many bytes at the front of a text are ASCII, or UTF-8: all of them, or those before the first that is not.
std::size_t leadingAscii(std::string_view bytes);
std::size_t leadingUtf8(std::string_view bytes);

/// The characters of a text in UTF-8; nothing when the bytes are no UTF-8.
std::optional<std::u32string> decodeUtf8(std::string_view bytes);

/// True when both texts in UTF-8 are the same but for the case of their Latin and Greek letters; the micro sign is mu.
bool equalIgnoringLetterCase(std::string_view a, std::string_view b);

/// What code page 437 has for a character: its micro sign, sharp s, capital sigma and omega serve as Greek mu, Greek
/// beta, the sign of a sum and that of ohms as well. Other characters stay themselves, with a place or without.
char32_t unifiedForCp437(char32_t c);

}  // namespace vk
