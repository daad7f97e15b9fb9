#include "base/FileText.h"

#include <algorithm>
#include <array>

#include "base/CodePage.h"
#include "base/Text.h"
#include "base/TextLines.h"

namespace vk {
namespace {

constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";

struct Replacement {
  char32_t character;
  const char* text;
};

// What is typed where there is no key for a sign.
constexpr std::array kTyped{
    Replacement{U'\u00B3', "^3"}, Replacement{U'\u00B9', "^1"},  Replacement{U'\u00D7', "*"},
    Replacement{U'\u207B', "^-"}, Replacement{U'\u20AC', "EUR"}, Replacement{U'\u2013', "-"},
    Replacement{U'\u2014', "-"},  Replacement{U'\u2212', "-"},   Replacement{U'\u201C', "\""},
    Replacement{U'\u201D', "\""}, Replacement{U'\u2018', "'"},   Replacement{U'\u2019', "'"},
    Replacement{U'\u2264', "<="}, Replacement{U'\u2265', ">="},
};

/// Letters with accents that the code page lacks: those of Italian, which are typed with a grave accent behind them,
/// and others.
constexpr std::u32string_view kGrave = U"ÀÈÌÒÙ";
constexpr std::string_view kGravePlain = "AEIOU";
constexpr std::u32string_view kMarked = U"ãõøýÁÂÃÊËÍÎÏÓÔÕØÚÛÝ";
constexpr std::string_view kMarkedPlain = "aooyAAAEEIIIOOOOUUY";

}  // namespace

FileText::FileText(std::string_view bytes) : text_(bytes) {
  const std::size_t ascii = leadingAscii(bytes);
  utf8_ = ascii < bytes.size() && leadingUtf8(bytes.substr(ascii)) == bytes.size() - ascii;
  if (utf8_ && text_.starts_with(kByteOrderMark)) text_.remove_prefix(kByteOrderMark.size());
}

int FileText::lineOfSign() const {
  const std::size_t sign = leadingUtf8(text_);
  if (sign == text_.size()) return 0;
  TextLines lines(text_);
  for (int number = 1;; ++number) {
    const auto line = lines.next();
    if (!line || sign <= static_cast<std::size_t>(line->end() - text_.begin())) return number;
  }
}

std::string typedFor(char32_t c) {
  const auto* other =
      std::find_if(kTyped.begin(), kTyped.end(), [&](const Replacement& r) { return r.character == c; });
  if (other != kTyped.end()) return other->text;
  if (const auto at = kGrave.find(c); at != kGrave.npos) return {kGravePlain[at], '`'};
  if (const auto at = kMarked.find(c); at != kMarked.npos) return {kMarkedPlain[at]};
  return "?";
}

std::string FileText::gridText(std::string_view piece) const {
  return utf8_ ? gridTextOfUtf8(piece) : std::string(piece);
}

std::string gridTextOfUtf8(std::string_view utf8) {
  const auto characters = decodeUtf8(utf8);
  if (!characters) return std::string(utf8);
  std::string text;
  for (const char32_t c : *characters) {
    const auto sign = c < 0x80 ? static_cast<char>(c) : fromUnicode(unifiedForCp437(c), CodePage::kCp437);
    text += sign ? std::string(1, *sign) : typedFor(c);
  }
  return text;
}

}  // namespace vk
