#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <cstdlib>

#include "base/NumberMasks.h"
#include "base/NumberText.h"
#include "base/Text.h"
#include "base/TextLines.h"
#include "data/DataFiles.h"
#include "data/FigureText.h"

namespace vk {
namespace {

const NumberMask kPointMask(" ##.#####^^^^ ");

/// The largest numbers of one, two and three digits: beyond them, rounded up, a number would be none any more.
constexpr std::array kLargestOfDigits{1E308, 1.7E308, 1.79E308};
/// The same for the digits of a mask, of which there are three at least.
constexpr double kLargestWritten = kLargestOfDigits.back();

/// The powers of ten that a double holds exactly.
constexpr std::array kTens{1E0,  1E1,  1E2,  1E3,  1E4,  1E5,  1E6,  1E7,  1E8,  1E9,  1E10, 1E11,
                           1E12, 1E13, 1E14, 1E15, 1E16, 1E17, 1E18, 1E19, 1E20, 1E21, 1E22};

/// A number of six digits: `digits`, from 100000 to 999999, times 10 to the power `exponent` - 5.
struct SixDigits {
  int digits = 0, exponent = 0;
};

enum class Found { kYes, kNo, kOutOfReach };

/// Looks for the number of six digits, without its sign, that reads back as this one. One product or quotient of a
/// whole number and a power of ten gives the double nearest to the exact result where both are exact, so this asks
/// for no text; where the power is none of `kTens`, nothing is known.
Found findSixDigits(double value, SixDigits& found) {
  constexpr double kLog2 = 0.30103;
  constexpr int kBeyond = 1000000;
  const double size = std::fabs(value);
  if (!(size >= 1E-16 && size <= 1E26)) return Found::kOutOfReach;
  for (found.exponent = static_cast<int>(std::floor(std::ilogb(size) * kLog2));; ++found.exponent) {
    const int shift = 5 - found.exponent;
    const double ten = kTens.at(static_cast<std::size_t>(std::abs(shift)));
    found.digits = static_cast<int>(std::lrint(shift > 0 ? size * ten : size / ten));
    // The power of two may tell an exponent that is one too small.
    if (found.digits >= kBeyond) continue;
    return (shift > 0 ? found.digits / ten : found.digits * ten) == size ? Found::kYes : Found::kNo;
  }
}

std::string fieldOf(const SixDigits& number, bool negative) {
  std::string field = negative ? " -0.00000E+00 " : "  0.00000E+00 ";
  const auto put = [&field](std::size_t place, int digit) { field[place] = static_cast<char>('0' + digit); };
  int rest = number.digits;
  for (std::size_t place = 8; place > 3; --place, rest /= 10) put(place, rest % 10);
  put(2, rest);
  if (number.exponent < 0) field[10] = '-';
  put(11, std::abs(number.exponent) / 10);
  put(12, std::abs(number.exponent) % 10);
  return field;
}

/// `dataField(value, kPointMask)`. Long files are nothing but such fields, so the usual ones are made in place: those
/// of numbers of six digits at once, others from 15 digits as everywhere, rounded to six.
std::string sixDigits(double value) {
  SixDigits found;
  if (findSixDigits(value, found) == Found::kYes) return fieldOf(found, value < 0);
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

/// True when six digits bring a number back.
bool comesBack(double value) {
  SixDigits found;
  const Found answer = findSixDigits(value, found);
  if (answer != Found::kOutOfReach) return answer == Found::kYes;
  return value == 0 || scanNumber(dataField(value, kDataDigits)) == value;
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
  if (digits < kMostDataDigits) {
    const auto most = static_cast<std::size_t>(std::min<int>(digits, kLargestOfDigits.size()));
    value = std::clamp(value, -kLargestOfDigits.at(most - 1), kLargestOfDigits.at(most - 1));
  }
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
    text += dataField(data.Xpnt[i], digits);
    text += dataField(data.Ypnt[i], digits);
    if (hasXErrors) text += dataField(data.ErrXpnt[i], digits);
    text += dataField(data.ErrYpnt[i], digits);
    text += lineEnd;
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
