#include "gral/ScaleLabels.h"

#include "base/NumberText.h"
#include "base/Text.h"

namespace vk {
namespace {

bool inExponentForm(std::string_view number) {
  return position(number, "E") != 0;
}

/// A zero before a point that has no digit before it.
std::string withLeadingZero(const std::string& number) {
  const int point = position(number, ".");
  if (point == 1) return "0" + number;
  if (point == 2 && number.front() == '-') return "-0" + mid(number, 2);
  return number;
}

}  // namespace

int decimalsOf(std::string_view number) {
  const int point = position(number, ".");
  return point == 0 || inExponentForm(number) ? 0 : length(number) - point;
}

std::string fillDecimals(std::string_view number, int decimals) {
  std::string result(number);
  if (decimals == 0 || inExponentForm(number)) return result;
  const int present = decimalsOf(number);
  if (position(number, ".") == 0) result += ".";
  return withLeadingZero(result + repeat(decimals - present, '0'));
}

std::string padInFront(std::string_view label, int width) {
  return repeat(width - length(label), ' ') + std::string(label);
}

std::string decadeLabel(std::string_view exponent, int width) {
  const double value = scanNumber(exponent);
  const std::string number = withLeadingZero(generalText(value));
  const std::string sign = value < 0 ? "-" : "";
  const std::string digits = mid(number, length(sign) + 1);
  return "10^{" + sign + padInFront(digits, width - length(sign)) + "}";
}

}  // namespace vk
