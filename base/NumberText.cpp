#include "base/NumberText.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <optional>

#include "base/Text.h"

namespace vk {
namespace {

constexpr int kDoubleDigits = 15;
constexpr int kSingleDigits = 7;
// Fixed notation ends at this power of ten, and where more decimals than this would be needed.
constexpr int kFixedLimit = 15;

std::size_t skipDigits(std::string_view text, std::size_t at) {
  while (at < text.size() && isDigit(text[at])) ++at;
  return at;
}

/// Length of the mantissa with its sign at the start of the text; 0 when it has no digit.
std::size_t mantissaLength(std::string_view text) {
  const std::size_t start = !text.empty() && (text[0] == '+' || text[0] == '-') ? 1 : 0;
  const std::size_t whole = skipDigits(text, start);
  if (whole >= text.size() || text[whole] != '.') return whole > start ? whole : 0;
  const std::size_t end = skipDigits(text, whole + 1);
  return end - start > 1 ? end : 0;
}

/// The exponent written behind a mantissa; one that is larger than any text is long stops at 1E15.
long writtenExponent(std::string_view exponent) {
  constexpr long kMost = 1'000'000'000'000'000;
  if (exponent.empty()) return 0;
  const bool negative = exponent[1] == '-';
  long size = 0;
  for (const char c : exponent) {
    if (isDigit(c)) size = std::min(10 * size + (c - '0'), kMost);
  }
  return negative ? -size : size;
}

/// True when a number that a double cannot hold is too small rather than too large.
bool isBelowRange(std::string_view number) {
  const std::string_view mantissa = number.substr(0, mantissaLength(number));
  const std::size_t first = mantissa.find_first_of("123456789");
  if (first == std::string_view::npos) return true;
  const std::size_t point = std::min(mantissa.find('.'), mantissa.size());
  const long power = static_cast<long>(point) - static_cast<long>(first);
  return power + writtenExponent(number.substr(mantissa.size())) < 0;
}

/// The value of a text that the standard library takes as it stands, which it does with nearly every number.
std::optional<double> plainValue(std::string_view text) {
  const std::size_t first = text.starts_with('-') ? 1 : 0;
  // It would take the names of what is no number too.
  if (first == text.size() || isLetter(text[first])) return std::nullopt;
  double value = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
  if (error != std::errc() || end != text.data() + text.size()) return std::nullopt;
  return value;
}

/// Value of a well-formed number; nothing when it is beyond the range of a double. Too small gives 0.
std::optional<double> valueOf(std::string_view number) {
  if (const auto value = plainValue(number)) return value;
  std::string plain(number[0] == '+' ? number.substr(1) : number);
  for (char& c : plain) c = upper(c) == 'D' || c == 'e' ? 'E' : c;
  double value = 0;
  const auto result = std::from_chars(plain.data(), plain.data() + plain.size(), value);
  if (result.ec == std::errc::result_out_of_range) {
    if (!isBelowRange(plain)) return std::nullopt;
    return plain[0] == '-' ? -0.0 : 0.0;
  }
  return value;
}

/// Value of the longest prefix of a number beyond the range that a double can hold.
double valueOfFinitePrefix(std::string_view number) {
  const auto value = [number](std::size_t end) {
    const std::string_view prefix = number.substr(0, end);
    const std::size_t good = numberLength(prefix);
    return good == 0 ? std::optional(0.0) : valueOf(prefix.substr(0, good));
  };
  // The exponent gives its digits up where the mantissa alone is in range, else the mantissa does. Either only
  // grows with its digits, so the end can be found by halving.
  const std::size_t mantissa = mantissaLength(number);
  std::size_t fits = value(mantissa) ? mantissa : 0;
  for (std::size_t tooLong = fits > 0 ? number.size() : mantissa; tooLong - fits > 1;) {
    const std::size_t middle = fits + (tooLong - fits) / 2;
    (value(middle) ? fits : tooLong) = middle;
  }
  return *value(fits);
}

std::string generalText(double value, int significant) {
  if (std::isnan(value)) return "NaN";
  if (std::isinf(value)) return value < 0 ? "-Inf" : "Inf";
  if (value == 0) return "0";
  auto [digits, exponent] = decimalDigits(value, significant);
  digits.erase(digits.find_last_not_of('0') + 1);
  const int count = length(digits);
  const std::string minus = value < 0 ? "-" : "";
  if (exponent > kFixedLimit || count - exponent > kFixedLimit) {
    const std::string tail = count > 1 ? "." + digits.substr(1) : "";
    return minus + digits[0] + tail + exponentText(exponent - 1);
  }
  if (exponent <= 0) return minus + "." + repeat(-exponent, '0') + digits;
  if (count <= exponent) return minus + digits + repeat(exponent - count, '0');
  return minus + left(digits, exponent) + "." + mid(digits, exponent + 1);
}

}  // namespace

std::string exponentText(int exponent) {
  const std::string digits = std::to_string(std::abs(exponent));
  return std::string(exponent < 0 ? "E-" : "E+") + (digits.size() < 2 ? "0" : "") + digits;
}

DecimalDigits decimalDigits(double value, int significant) {
  if (value == 0) return {repeat(significant, '0'), 0};
  std::array<char, 64> buffer{};
  const auto end = std::to_chars(buffer.data(), buffer.data() + buffer.size(), std::fabs(value),
                                 std::chars_format::scientific, significant - 1);
  const std::string_view text(buffer.data(), static_cast<std::size_t>(end.ptr - buffer.data()));
  const auto e = text.find('e');
  DecimalDigits result{std::string(text.substr(0, e)), 0};
  if (e > 1) result.digits.erase(1, 1);  // the point
  const bool negative = text[e + 1] == '-';
  std::from_chars(text.data() + e + 2, text.data() + text.size(), result.exponent);
  result.exponent = (negative ? -result.exponent : result.exponent) + 1;
  return result;
}

std::size_t numberLength(std::string_view text) {
  const std::size_t mantissa = mantissaLength(text);
  if (mantissa == 0 || mantissa >= text.size()) return mantissa;
  if (const char e = upper(text[mantissa]); e != 'E' && e != 'D') return mantissa;
  std::size_t digits = mantissa + 1;
  if (digits < text.size() && (text[digits] == '+' || text[digits] == '-')) ++digits;
  const std::size_t end = skipDigits(text, digits);
  return end > digits ? end : mantissa;
}

std::optional<double> numberIn(std::string_view text) {
  if (const auto value = plainValue(text)) return value;
  if (text.empty() || numberLength(text) != text.size()) return std::nullopt;
  return valueOf(text);
}

bool isNumeric(std::string_view text) {
  return numberIn(text).has_value();
}

double scanNumber(std::string_view text) {
  text.remove_prefix(std::min(text.find_first_not_of(' '), text.size()));
  const std::string_view number = text.substr(0, numberLength(text));
  if (number.empty()) return 0;
  if (const auto value = valueOf(number)) return *value;
  return valueOfFinitePrefix(number);
}

std::string generalText(double value) {
  return generalText(value, kDoubleDigits);
}

std::string generalText(float value) {
  return generalText(static_cast<double>(value), kSingleDigits);
}

std::string generalText(int value) {
  return std::to_string(value);
}

std::string signedText(double value) {
  const std::string text = generalText(value);
  return text[0] == '-' ? text : " " + text;
}

std::string signedText(int value) {
  return value < 0 ? std::to_string(value) : " " + std::to_string(value);
}

}  // namespace vk
