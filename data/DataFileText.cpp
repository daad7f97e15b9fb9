#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <limits>

#include "base/NumberMasks.h"
#include "base/NumberText.h"
#include "base/Text.h"
#include "base/TextLines.h"
#include "data/DataFiles.h"
#include "data/FigureText.h"

namespace vk {
namespace {

const NumberMask kPointMask(" ##.#####^^^^ ");

/// Rounded up to the digits of a mask, a number beyond this one would be none any more.
constexpr double kLargestWritten = 1.79E308;

/// `dataField(value, kPointMask)`. Long files are nothing but such fields, so the usual ones are made in place: 15
/// digits as everywhere, rounded to six.
std::string sixDigits(double value) {
  constexpr std::ptrdiff_t kUsualLength = 20;  // "d.dddddddddddddde+dd"
  constexpr std::size_t kLast = 6;             // place of the sixth digit
  std::array<char, 32> digits{};
  char* const end =
      std::to_chars(digits.begin(), digits.end(), std::fabs(value), std::chars_format::scientific, 14).ptr;
  const bool up = digits[kLast + 1] >= '5';
  const bool carries = up && digits[kLast] == '9';
  if (end - digits.begin() != kUsualLength || value == 0 || carries) return dataField(value, kPointMask);
  if (up) ++digits[kLast];
  std::string field(value < 0 ? " -" : "  ");
  field.append(digits.begin(), kLast + 1).append("E").append(end - 3, end).append(" ");
  return field;
}

/// True when six digits bring a number back: its shortest text tells, but for an exponent of three digits.
bool comesBack(double value) {
  constexpr std::ptrdiff_t kLongest = 11;  // "d.ddddde+dd"
  std::array<char, 32> digits{};
  char* const end =
      std::to_chars(digits.begin(), digits.end(), std::fabs(value), std::chars_format::scientific).ptr;
  if (end - digits.begin() > 4 && end[-4] == 'e') return end - digits.begin() <= kLongest;
  return scanNumber(dataField(value, kDataDigits)) == value;
}

}  // namespace

std::string dataTitle(std::string_view text) {
  std::string title = cleanLine(text);
  const std::string_view shown = trimmedLine(title);
  if (shown.empty()) return "-";
  return shown.front() == '%' ? "- " + std::string(shown) : title;
}

std::string dataField(double value, const NumberMask& mask) {
  if (std::isfinite(value)) value = std::clamp(value, -kLargestWritten, kLargestWritten);
  std::string field = FormatMask(value, mask);
  if (field.find('*') == std::string::npos) return field;
  // The third digit of an exponent takes the place of the last decimal.
  std::string pattern = mask.pattern;
  pattern.erase(pattern.find('E') - 1, 1);
  const std::string text = FormatPattern(value, pattern);
  return inMask(text.starts_with('.') ? "0" + text : text, mask);
}

std::string dataField(double value, int digits) {
  if (digits == kDataDigits || !std::isfinite(value)) return sixDigits(value);
  // Rounded to few digits the largest numbers would be none any more.
  const double bound = digits < kMostDataDigits ? kLargestWritten : std::numeric_limits<double>::max();
  value = std::clamp(value, -bound, bound);
  auto [text, exponent] = decimalDigits(value, digits);
  if (digits > 1) text.insert(1, ".");
  const bool isZero = value == 0;
  return (value < 0 ? " -" : "  ") + text + exponentText(isZero ? 0 : exponent - 1) + " ";
}

std::string dataFileText(const DataSet& data, int digits) {
  const std::string lineEnd(kCrLf);
  const bool hasXErrors = data.kXpntErr != kFalse;
  std::string text = utf8OfFigureText(dataTitle(data.TitleX)) + lineEnd +
                     utf8OfFigureText(dataTitle(data.TitleY)) + lineEnd + signedText(data.NumPnt) +
                     (hasXErrors ? " 1" : "") + lineEnd;
  for (int i = 1; i <= data.NumPnt; ++i) {
    text += dataField(data.Xpnt[i], digits) + dataField(data.Ypnt[i], digits);
    if (hasXErrors) text += dataField(data.ErrXpnt[i], digits);
    text += dataField(data.ErrYpnt[i], digits) + lineEnd;
  }
  return text;
}

bool losesDigits(const DataSet& data) {
  for (const Array<double>* column : {&data.Xpnt, &data.Ypnt, &data.ErrXpnt, &data.ErrYpnt}) {
    if (!std::ranges::all_of(column->span(1, data.NumPnt), comesBack)) return true;
  }
  return false;
}

}  // namespace vk
