#include <algorithm>
#include <cmath>
#include <string>
#include <vector>

#include "base/CodePage.h"
#include "base/FileText.h"
#include "base/NumberMasks.h"
#include "base/NumberText.h"
#include "base/RoundedValue.h"
#include "base/Text.h"
#include "base/TextLines.h"
#include "data/FigureText.h"
#include "fuzz/Input.h"
#include "gral/Markup.h"

namespace vk {
namespace {

// ---- Numbers ----------------------------------------------------------------------------------------------

void probeReading(std::string_view text) {
  const auto value = numberIn(text);
  const std::size_t length = numberLength(text);
  require(length <= text.size() && isNumeric(text) == value.has_value(), "one rule for numbers");
  require(!value || (length == text.size() && length > 0 && std::isfinite(*value)), "a number as a whole");
  require(std::isfinite(scanNumber(text)), "a finite number");
  require(!value || scanNumber("  " + std::string(text) + " x") == *value, "a number before other text");
  if (value) require(numberIn(generalText(*value)) || std::abs(*value) > 1.79E308, "a text that can be read");
}

/// The text of a value within a mask, and what it may differ by: half a unit of the last digit, and the 15 digits from
/// which all texts are made.
struct Mask {
  std::string text;
  int decimals = 0;
  bool exponent = false;

  double accuracy(double value) const {
    const double unit = std::pow(10, -decimals + (exponent ? 1 : 0));
    return 0.5000001 * unit * (exponent ? std::abs(value) : 1) + 1E-14 * std::abs(value);
  }
};

Mask maskOf(Input& input) {
  const auto some = [&input](unsigned most) { return static_cast<int>(input.choice(most + 1)); };
  Mask mask;
  mask.text = repeat(some(3), ' ');
  mask.text += repeat(1 + some(5), '#') + ".";
  mask.decimals = 1 + some(8);
  mask.text += repeat(mask.decimals, '#');
  mask.exponent = some(1) == 1;
  mask.text += (mask.exponent ? "^^^^" : "") + repeat(some(2), ' ');
  return mask;
}

bool isAsterisks(const std::string& text) {
  return text.find_first_not_of('*') == std::string::npos;
}

void probeValue(Input& input) {
  const Mask mask = maskOf(input);
  const double value = input.number();
  const std::string field = FormatMask(value, mask.text);
  require(field.size() == mask.text.size(), "a field as long as its mask");
  FormatSigned(value, MaskPattern(std::string(input.part())));
  FormatMask(value, std::string(input.rest()));
  if (!std::isfinite(value) || std::abs(value) > 1.79E308) return;
  const auto shown = numberIn(trim(field));
  require(shown || isAsterisks(trim(field)), "a number or asterisks");
  require(!shown || std::abs(*shown - value) <= mask.accuracy(value), "the digits of the value");
  const std::string general = generalText(value);
  const auto back = numberIn(general);
  require(back && std::abs(*back - value) <= 1E-14 * std::abs(value), "fifteen digits");
  require(generalText(*back) == general, "one text of a number");
  const std::string compact = FormatCompact(value);
  require(isNumeric(compact) || isAsterisks(compact), "a number or asterisks");
  require(numberIn(roundedValue(value, {}).plain) == value, "all digits where there is no error");
}

void probeError(Input& input) {
  const double value = input.number(), error = input.number();
  const RoundedValue rounded = roundedValue(value, error);
  require(!rounded.plain.empty() && !rounded.compact.empty(), "a text for every value");
}

// ---- Characters -------------------------------------------------------------------------------------------

std::string utf8Of(const std::u32string& characters) {
  std::string utf8;
  for (const char32_t c : characters) appendUtf8(utf8, c);
  return utf8;
}

void probeUtf8(std::string_view bytes) {
  const std::size_t ascii = leadingAscii(bytes), valid = leadingUtf8(bytes);
  require(ascii <= valid && valid <= bytes.size(), "ASCII is UTF-8");
  const auto characters = decodeUtf8(bytes);
  require(characters.has_value() == (valid == bytes.size()), "one rule for UTF-8");
  const auto front = decodeUtf8(bytes.substr(0, valid));
  require(front && utf8Of(*front) == bytes.substr(0, valid), "the same bytes");
  require(equalIgnoringLetterCase(bytes, bytes), "equal to itself");
  const FileText file(bytes);
  require(bytes.ends_with(file.text()), "the end of the file");
  require((file.lineOfSign() == 0) == (leadingUtf8(file.text()) == file.text().size()),
          "a line for each fault");
  const std::string grid = file.gridText(file.text());
  require(!file.isUtf8() || gridTextOfUtf8(grid) == grid || leadingAscii(grid) < grid.size(),
          "signs that stay");
}

void probeCodePages(std::string_view bytes) {
  for (const CodePage page : {CodePage::kCp437, CodePage::kWindows1252}) {
    const std::u32string characters = toUnicode(bytes, page);
    require(decodeUtf8(toUtf8(bytes, page)) == characters, "the same characters");
    require(std::ranges::equal(characters, bytes, {}, [page](char32_t c) { return fromUnicode(c, page); }),
            "each byte comes back");
  }
  const std::string drawn = figureTextOfUtf8(bytes);
  require(figureTextOfUtf8(utf8OfFigureText(drawn)) == drawn, "a title comes back");
  const std::string old = TranslateDosText(bytes);
  require(leadingAscii(old) == old.size(), "markup in ASCII");
}

// ---- Lines ------------------------------------------------------------------------------------------------

void probeMarkup(std::string_view text) {
  const std::vector<MarkupLetter> letters = readMarkup(text);
  auto place = text.begin();
  for (const MarkupLetter& letter : letters) {
    place = std::find(place, text.end(), letter.character);
    require(place != text.end(), "letters of the text in their order");
    ++place;
  }
  const bool plain = text.find_first_of("^_{}") == text.npos && text.find("\\\\") == text.npos;
  require(!plain || std::ranges::all_of(
                        letters,
                        [](const MarkupLetter& letter) { return letter == MarkupLetter{letter.character}; }),
          "plain letters where there is no markup");
  require(!plain || letters.size() == text.size(), "all letters");
}

std::vector<std::string_view> words(std::string_view text) {
  std::vector<std::string_view> found;
  const auto blank = [](char c) { return c == ' '; };
  for (auto word = takeField(text, blank); !word.empty(); word = takeField(text, blank))
    found.push_back(word);
  return found;
}

void probeLines(Input& input) {
  const int width = 1 + static_cast<int>(input.choice(80));
  const std::string text(input.rest());
  std::string joined, put;
  TextLines lines(text);
  while (const auto line = lines.next()) joined.append(*line).append(lines.lineEnd());
  require(joined.starts_with(text) || text == joined, "all lines of the text");
  require(joined.size() <= text.size() + lines.lineEnd().size(), "no line more");
  for (const std::string& line : wrapped(text, width)) {
    require(length(line) <= width || words(line).size() <= 1, "lines of that width");
    put += line + " ";
  }
  require(words(put) == words(text), "the same words");
  require(words(trim(text)) == words(text) && length(shortened(text, width)) <= std::max(width, 3),
          "short texts");
}

}  // namespace

void probe(Input input) {
  switch (input.choice(7)) {
    case 0:
      probeReading(input.rest());
      break;
    case 1:
      probeValue(input);
      break;
    case 2:
      probeError(input);
      break;
    case 3:
      probeUtf8(input.rest());
      break;
    case 4:
      probeCodePages(input.rest());
      break;
    case 5:
      probeMarkup(input.rest());
      break;
    default:
      probeLines(input);
  }
}

}  // namespace vk
