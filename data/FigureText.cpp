#include "data/FigureText.h"

#include <array>
#include <optional>

#include "base/CodePage.h"
#include "base/Text.h"

namespace vk {
namespace {

struct Translation {
  int code;
  const char* text;
};

/// Signs of the old 8-bit code and the markup that draws them.
constexpr std::array<Translation, 18> kTranslations{{
    {159, "A"},
    {171, "1/2"},
    {172, "1/4"},
    {224, "\\\\a"},
    {225, "\\\\b"},
    {226, "\\\\G"},
    {227, "\\\\p"},
    {228, "\\\\S"},
    {229, "\\\\s"},
    {230, "\\\\m"},
    {231, "\\\\g"},
    {232, "\\\\f"},
    {233, "\\\\q"},
    {234, "\\\\W"},
    {235, "\\\\d"},
    {248, "^o"},
    {252, "^n"},
    {253, "^2"},
}};

/// The markup of a sign above 127.
const char* markupOf(char c) {
  for (const Translation& translation : kTranslations) {
    if (translation.code == code(c)) return translation.text;
  }
  return "??";
}

/// The Greek letter that a character is or looks like, as the Greek font has it.
std::optional<char> greekLetter(char32_t c) {
  if (c == U'\u00B5') c = U'\u03BC';
  if (c == U'\u2211') c = U'\u03A3';
  if (c == U'\u2126') c = U'\u03A9';
  const auto letter = fromUnicode(c, CodePage::kSymbol);
  return letter && isLetter(*letter) ? letter : std::nullopt;
}

// The codes of tau, Phi, Theta and two others draw something else in old files, which UTF-8 has a character for.
std::string drawn(char32_t c) {
  constexpr std::u32string_view kSigns =
      U"\u00B0\u00B2\u00BC\u00BD\u207F";  // degree, square, 1/4, 1/2, n raised
  if (c < 0x80) return {static_cast<char>(c)};
  if (c < 0xA0) return "?";  // control characters
  if (const auto letter = greekLetter(c)) return std::string("\\\\") + *letter;
  if (kSigns.find(c) != kSigns.npos) return markupOf(*fromUnicode(c, CodePage::kCp437));
  const auto sign = fromUnicode(c, CodePage::kWindows1252);
  return sign ? std::string(1, *sign) : typedFor(c);
}

}  // namespace

std::string TranslateDosText(std::string_view text) {
  std::string result;
  result.reserve(text.size());
  for (const char c : text) {
    if (code(c) <= 127) {
      result += c;
    } else {
      result += markupOf(c);
    }
  }
  return result;
}

std::string figureTextOfUtf8(std::string_view utf8) {
  std::string text;
  for (const char32_t c : decodeUtf8(utf8).value_or(std::u32string())) text += drawn(c);
  return text;
}

std::string figureText(const FileText& file, std::string_view piece) {
  return file.isUtf8() ? figureTextOfUtf8(piece) : TranslateDosText(piece);
}

std::string utf8OfFigureText(std::string_view text) {
  return toUtf8(text, CodePage::kWindows1252);
}

}  // namespace vk
