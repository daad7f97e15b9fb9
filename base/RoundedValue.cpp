#include "base/RoundedValue.h"

#include <algorithm>
#include <cmath>

#include "base/NumberText.h"
#include "base/Text.h"

namespace vk {
namespace {

constexpr int kErrorDigits = 2;
constexpr int kMostDigits = 17;  ///< that a double can tell apart
// A leading digit at a power of ten outside these is written with an exponent.
constexpr int kLowestFixed = -4, kHighestFixed = 14;

/// A whole number of units of 10^place.
struct Units {
  std::string digits;  ///< without leading zeros; empty for 0
  int place = 0;
  bool negative = false;

  /// The power of ten of the leading digit; of 0 that of its place.
  int power() const { return place + std::max(length(digits), 1) - 1; }
};

Units significant(double value, int count) {
  const auto [digits, exponent] = decimalDigits(value, count);
  return {digits, exponent - count, value < 0};
}

/// The fewest digits that bring the value back.
Units shortest(double value) {
  if (value == 0) return {};
  int count = 1;
  const auto textOf = [&] {
    const auto [digits, exponent] = decimalDigits(value, count);
    return digits + "E" + std::to_string(exponent - count);
  };
  while (count < kMostDigits && numberIn(textOf()) != std::fabs(value)) ++count;
  return significant(value, count);
}

/// The value to the place; at most `kMostDigits` of it are wanted.
Units roundedTo(double value, int place) {
  const Units all = significant(value, kMostDigits);
  const int count = all.power() - place + 1;
  if (value == 0 || count < 0) return {"", place, false};
  if (count == 0) return all.digits[0] >= '5' ? Units{"1", place, value < 0} : Units{"", place, false};
  Units rounded = significant(value, count);
  if (rounded.place > place) rounded.digits += '0';
  rounded.place = place;
  return rounded;
}

/// The units with the decimal point before the digits of 10^-1, counted from 10^scale.
std::string decimal(const Units& units, int scale) {
  const int decimals = scale - units.place;
  std::string digits = units.digits.empty() ? "0" : units.digits;
  if (decimals <= 0)
    return (units.negative ? "-" : "") + digits + (units.digits.empty() ? "" : repeat(-decimals, '0'));
  digits = repeat(decimals + 1 - length(digits), '0') + digits;
  const int whole = length(digits) - decimals;
  return (units.negative ? "-" : "") + left(digits, whole) + "." + mid(digits, whole + 1);
}

std::string exponentBehind(int power) {
  return power == 0 ? "" : "E" + std::to_string(power);
}

bool isFixed(int place, int power) {
  return place <= 0 && power >= kLowestFixed && power <= kHighestFixed;
}

RoundedValue alone(double value) {
  if (!std::isfinite(value)) return {vk::generalText(value), vk::generalText(value)};
  const Units units = shortest(value);
  const int power = units.power();
  const std::string compact = decimal(units, power) + exponentBehind(power);
  const bool fixed = power >= kLowestFixed && power <= kHighestFixed;
  return {fixed ? decimal(units, 0) : compact, compact};
}

}  // namespace

RoundedValue roundedValue(double value, std::optional<double> error) {
  if (!std::isfinite(value) || !error || *error == 0 || !std::isfinite(*error)) return alone(value);
  const Units uncertain = significant(std::fabs(*error), kErrorDigits);
  if (value != 0 && significant(value, 1).power() - uncertain.place >= kMostDigits) return alone(value);
  const Units rounded = roundedTo(value, uncertain.place);
  const int power = std::max(rounded.power(), uncertain.power());
  const int scale = isFixed(uncertain.place, power) ? 0 : power;
  const std::string both = decimal(rounded, scale) + " +- " + decimal(uncertain, scale);
  return {scale == 0 ? both : "(" + both + ")" + exponentBehind(scale),
          decimal(rounded, power) + "(" + uncertain.digits + ")" + exponentBehind(power)};
}

}  // namespace vk
