#include "data/foreign/Encoding.h"

#include <algorithm>

#include "base/CodePage.h"
#include "base/Text.h"
#include "data/foreign/BinaryKinds.h"
#include "data/foreign/Refusal.h"

namespace vk {
namespace {

constexpr std::string_view kUtf8Mark = "\xEF\xBB\xBF";
constexpr std::string_view kUtf16LeMark = "\xFF\xFE";
constexpr std::string_view kUtf16BeMark = "\xFE\xFF";
constexpr char32_t kUnknown = 0xFFFD;

struct Name {
  Encoding encoding;
  const char* option;
  const char* shown;
};

constexpr std::array kNames{
    Name{Encoding::kAscii, "ascii", "ASCII"},
    Name{Encoding::kUtf8, "utf-8", "UTF-8"},
    Name{Encoding::kUtf8Bom, "utf-8-bom", "UTF-8 con BOM"},
    Name{Encoding::kUtf16Le, "utf-16le", "UTF-16 LE"},
    Name{Encoding::kUtf16Be, "utf-16be", "UTF-16 BE"},
    Name{Encoding::kLatin1, "latin-1", "Latin-1"},
    Name{Encoding::kWindows1252, "windows-1252", "Windows-1252"},
    Name{Encoding::kCp437, "cp437", "tabella codici 437"},
};

/// The text without the zeros and the end signs (Ctrl-Z) with which old systems fill up a file.
std::string_view withoutFilling(std::string_view bytes) {
  using namespace std::string_view_literals;
  return bytes.substr(0, bytes.find_last_not_of("\0\x1A"sv) + 1);
}

/// Text of Latin letters in 16 bits has zeros in every second place, and hardly elsewhere.
std::optional<Encoding> unmarkedUtf16(std::string_view bytes) {
  constexpr std::size_t kLooked = 4096;
  const std::string_view looked = bytes.substr(0, kLooked);
  std::array<std::size_t, 2> zeros{};
  for (std::size_t i = 0; i < looked.size(); ++i) zeros[i % 2] += looked[i] == '\0' ? 1U : 0U;
  const auto most = [&](std::size_t count) { return 10 * count > 7 * (looked.size() / 2); };
  if (most(zeros[1]) && 20 * zeros[0] < looked.size()) return Encoding::kUtf16Le;
  if (most(zeros[0]) && 20 * zeros[1] < looked.size()) return Encoding::kUtf16Be;
  return std::nullopt;
}

bool isStrangeControl(char c) {
  return code(c) < ' ' && (c < '\t' || c > '\r') && c != '\x1A' && c != '\x1B';
}

void refuseBinary(std::string_view text) {
  const auto strange = std::count_if(text.begin(), text.end(), isStrangeControl);
  if (text.find('\0') != std::string_view::npos || 100 * strange > std::ssize(text)) {
    throw Refusal("non e` un file di testo: contiene byte che non sono caratteri");
  }
}

/// How well a character goes with the titles of measured data.
int plausibility(char32_t c) {
  constexpr std::u32string_view kExpected = U"àèéìòùÀÈÉÌÒÙç°µ±²³×·";
  constexpr std::u32string_view kLetters = U"áâäåæëêíîïñóôöøúûüßÄÅÇÑÖØÜαβΓγδεθλμπσΣτφΦΩΔ";
  constexpr std::u32string_view kPossible = U"€–—‘’“”«»…©®½¼¾√∞≈≤≥÷·ªº";
  if (kExpected.find(c) != kExpected.npos) return 3;
  if (kLetters.find(c) != kLetters.npos) return 2;
  if (kPossible.find(c) != kPossible.npos) return 1;
  return -2;
}

int plausibility(std::string_view bytes, CodePage page) {
  int sum = 0;
  for (const char c : bytes) {
    if (code(c) >= 0x80) sum += plausibility(toUnicode(c, page));
  }
  return sum;
}

Encoding guessEightBits(std::string_view text) {
  if (plausibility(text, CodePage::kCp437) > plausibility(text, CodePage::kWindows1252)) {
    return Encoding::kCp437;
  }
  const bool latin =
      std::none_of(text.begin(), text.end(), [](char c) { return code(c) >= 0x80 && code(c) < 0xA0; });
  return latin ? Encoding::kLatin1 : Encoding::kWindows1252;
}

std::string decodeUtf16(std::string_view bytes, bool highFirst) {
  std::string text;
  text.reserve(bytes.size() / 2);
  for (std::size_t i = 0; i + 1 < bytes.size(); i += 2) {
    const auto high = static_cast<char32_t>(code(bytes[highFirst ? i : i + 1]));
    const auto low = static_cast<char32_t>(code(bytes[highFirst ? i + 1 : i]));
    const char32_t c = high << 8 | low;
    // What takes two of these has no place in a title.
    if (c < 0x80) {
      text += static_cast<char>(c);
    } else {
      appendUtf8(text, c >= 0xD800 && c < 0xE000 ? kUnknown : c);
    }
  }
  return text;
}

std::string_view without(std::string_view mark, std::string_view bytes) {
  return bytes.starts_with(mark) ? bytes.substr(mark.size()) : bytes;
}

std::string toText(std::string_view bytes, Encoding encoding) {
  switch (encoding) {
    case Encoding::kUtf16Le:
      return decodeUtf16(without(kUtf16LeMark, bytes), false);
    case Encoding::kUtf16Be:
      return decodeUtf16(without(kUtf16BeMark, bytes), true);
    case Encoding::kLatin1:
    case Encoding::kWindows1252:
      return toUtf8(withoutFilling(bytes), CodePage::kWindows1252);
    case Encoding::kCp437:
      return toUtf8(withoutFilling(bytes), CodePage::kCp437);
    case Encoding::kAscii:
    case Encoding::kUtf8:
    case Encoding::kUtf8Bom:
      break;
  }
  return std::string(without(kUtf8Mark, withoutFilling(bytes)));
}

struct Plain {
  std::string_view sign;
  char plain;
};

// In UTF-8: hard blank, thin blank, narrow hard blank, figure blank, minus, apostrophe.
constexpr std::array kPlain{Plain{"\u00A0", ' '}, Plain{"\u2009", ' '}, Plain{"\u202F", ' '},
                            Plain{"\u2007", ' '}, Plain{"\u2212", '-'}, Plain{"\u2019", '\''}};

std::string withPlainSigns(std::string text) {
  const auto high = [](char c) { return code(c) >= 0x80; };
  if (std::none_of(text.begin(), text.end(), high)) return text;
  std::string result;
  result.reserve(text.size());
  for (std::string_view rest = text; !rest.empty();) {
    const auto* sign =
        std::find_if(kPlain.begin(), kPlain.end(), [&](const Plain& p) { return rest.starts_with(p.sign); });
    result += sign == kPlain.end() ? rest.front() : sign->plain;
    rest.remove_prefix(sign == kPlain.end() ? 1 : sign->sign.size());
  }
  return result;
}

}  // namespace

std::string_view encodingName(Encoding encoding) {
  return std::find_if(kNames.begin(), kNames.end(), [&](const Name& n) { return n.encoding == encoding; })
      ->shown;
}

std::optional<Encoding> encodingNamed(std::string_view word) {
  for (const Name& name : kNames) {
    if (equalIgnoringCase(word, name.option)) return name.encoding;
  }
  return std::nullopt;
}

Encoding guessEncoding(std::string_view bytes) {
  refuseOtherKinds(bytes);
  if (bytes.starts_with(kUtf16LeMark)) return Encoding::kUtf16Le;
  if (bytes.starts_with(kUtf16BeMark)) return Encoding::kUtf16Be;
  const std::string_view text = withoutFilling(bytes);
  if (text.find('\0') != std::string_view::npos) {
    if (const auto wide = unmarkedUtf16(bytes)) return *wide;
  }
  refuseBinary(text);
  if (text.starts_with(kUtf8Mark)) return Encoding::kUtf8Bom;
  if (std::all_of(text.begin(), text.end(), [](char c) { return code(c) < 0x80; })) return Encoding::kAscii;
  return decodeUtf8(text) ? Encoding::kUtf8 : guessEightBits(text);
}

std::string decodeText(std::string_view bytes, Encoding encoding) {
  return withPlainSigns(toText(bytes, encoding));
}

}  // namespace vk
