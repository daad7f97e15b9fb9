#include "data/foreign/Titles.h"

#include <algorithm>
#include <array>

#include "base/CodePage.h"
#include "data/DataFiles.h"

namespace vk {
namespace {

struct Replacement {
  char32_t character;
  const char* text;
};

// What data files have no sign for.
constexpr std::array kReplacements{
    Replacement{U'\u00B1', "+-"},  Replacement{U'\u00B3', "^3"},    Replacement{U'\u00B9', "^1"},
    Replacement{U'\u00D7', "x"},   Replacement{U'\u00B7', "*"},     Replacement{U'\u207B', "^-"},
    Replacement{U'\u20AC', "EUR"}, Replacement{U'\u2013', "-"},     Replacement{U'\u2014', "-"},
    Replacement{U'\u201C', "\""},  Replacement{U'\u201D', "\""},    Replacement{U'\u2018', "'"},
    Replacement{U'\u00BA', "^o"},  Replacement{U'\u2126', "\\\\W"},
};

/// Letters with accents: those of Italian, which are typed with a grave accent behind them, and others.
constexpr std::u32string_view kAccented = U"àèéìòùÀÈÉÌÒÙ";
constexpr std::string_view kAccentedPlain = "aeeiouAEEIOU";
constexpr std::u32string_view kMarked = U"áâãäåçêëíîïñóôõöøúûüýÁÂÃÄÅÇÊËÍÎÏÑÓÔÕÖØÚÛÜÝ";
constexpr std::string_view kMarkedPlain = "aaaaaceeiiinooooouuuyAAAAACEEIIINOOOOOUUUY";

std::string titleOf(char32_t c) {
  if (c < ' ') return " ";
  if (c < 0x80) return {static_cast<char>(c)};
  const auto* other = std::find_if(kReplacements.begin(), kReplacements.end(),
                                   [&](const Replacement& r) { return r.character == c; });
  if (other != kReplacements.end()) return other->text;
  if (const auto at = kAccented.find(c); at != kAccented.npos) return {kAccentedPlain[at], '`'};
  if (const auto at = kMarked.find(c); at != kMarked.npos) return {kMarkedPlain[at]};
  const auto sign = fromUnicode(unifiedForCp437(c), CodePage::kCp437);
  const std::string markup = sign ? TranslateDosText({&*sign, 1}) : "??";
  return markup == "??" ? "?" : markup;
}

}  // namespace

std::string titleOfUtf8(std::string_view text) {
  std::string title;
  for (const char32_t c : decodeUtf8(text).value_or(std::u32string())) title += titleOf(c);
  return dataTitle(title);
}

}  // namespace vk
