#include "base/NumberMasks.h"

#include <algorithm>
#include <cmath>

#include "base/Text.h"

namespace vk {
namespace {

constexpr std::string_view kMaskExponent = "^^^^";
constexpr std::string_view kPictureExponent = "E+00";
constexpr int kSignificantDigits = 15;

/// A digit picture taken apart.
struct Picture {
  int whole;     ///< digit positions before the point
  int decimals;  ///< digit positions behind it
  bool point;
  bool exponent;
};

Picture readPicture(std::string_view pattern) {
  const bool exponent = pattern.ends_with(kPictureExponent);
  if (exponent) pattern.remove_suffix(kPictureExponent.size());
  const int point = position(pattern, ".");
  if (point == 0) return {length(pattern), 0, false, exponent};
  return {point - 1, length(pattern) - point, true, exponent};
}

/// Rounds to `count` digits, halves away from zero. A carry beyond the first digit makes one digit more and
/// raises the exponent.
void roundDigits(DecimalDigits& number, int count) {
  std::string& digits = number.digits;
  const bool up = count >= 0 && count < length(digits) && digits[static_cast<std::size_t>(count)] >= '5';
  digits.resize(static_cast<std::size_t>(std::max(count, 0)), '0');
  if (!up) return;
  const auto lastSmall = digits.find_last_not_of('9');
  const std::size_t nines = lastSmall == std::string::npos ? 0 : lastSmall + 1;
  std::fill(digits.begin() + static_cast<std::ptrdiff_t>(nines), digits.end(), '0');
  if (nines > 0) {
    ++digits[lastSmall];
    return;
  }
  digits.insert(digits.begin(), '1');
  ++number.exponent;
}

/// The digits with the point in front of the last `decimals` of them; zeros fill up missing decimals.
std::string placePoint(std::string digits, const Picture& picture) {
  digits.insert(0, repeat(picture.decimals - length(digits), '0'));
  if (picture.point) digits.insert(digits.size() - static_cast<std::size_t>(picture.decimals), 1, '.');
  return digits;
}

std::string fixedPicture(DecimalDigits number, const Picture& picture) {
  roundDigits(number, number.exponent + picture.decimals);
  return placePoint(number.digits, picture);
}

std::string exponentPicture(DecimalDigits number, const Picture& picture) {
  const int count = picture.whole + picture.decimals;
  roundDigits(number, count);
  number.digits.resize(static_cast<std::size_t>(count));
  return placePoint(number.digits, picture) + exponentText(number.exponent - picture.whole);
}

std::string zeroPicture(const Picture& picture) {
  return placePoint("", picture) + (picture.exponent ? exponentText(0) : "");
}

}  // namespace

std::string MaskPattern(const std::string& mask) {
  const std::string field = trim(mask);
  const bool exponent = std::string_view(field).ends_with(kMaskExponent);
  const int point = position(field, ".");
  std::string pattern = point > 0 ? repeat(point - 1, '#') + "." : "";
  const int digits = length(field) - (exponent ? length(kMaskExponent) : 0) - point;
  pattern += repeat(digits, point > 0 ? '0' : '#');
  if (exponent) pattern += kPictureExponent;
  // The first position of the field is kept for the sign.
  if (pattern.starts_with('#')) pattern.erase(0, 1);
  return pattern;
}

NumberMask::NumberMask(const std::string& mask)
    : pattern(MaskPattern(mask)),
      lead(length(mask) - length(trimLeft(mask))),
      width(length(trim(mask))),
      trail(length(mask) - lead - width) {}

std::string inMask(std::string_view text, const NumberMask& mask) {
  std::string field = repeat(mask.lead + mask.width - length(text), ' ');
  field += text;
  field.append(static_cast<std::size_t>(mask.trail), ' ');
  return field;
}

std::string FormatMask(double value, const NumberMask& mask) {
  std::string text = FormatPattern(value, mask.pattern);
  // Only a value not below zero gets the zero before the point: a sign takes its place.
  if (text.starts_with('.')) text.insert(0, 1, '0');
  return inMask(length(text) > mask.width ? repeat(mask.width, '*') : text, mask);
}

std::string FormatCompact(double value) {
  const std::string general = generalText(value);
  const std::string masked = FormatMask(value, "#.######^^^^");
  return general.size() >= masked.size() ? masked : general;
}

std::string FormatSigned(double value, const std::string& pattern) {
  const std::string text = FormatPattern(value, pattern);
  return text.starts_with('-') ? text : " " + text;
}

std::string FormatPattern(double value, const std::string& pattern) {
  if (pattern.empty() || !std::isfinite(value)) return generalText(value);
  const Picture picture = readPicture(pattern);
  if (value == 0) return zeroPicture(picture);
  const DecimalDigits number = decimalDigits(value, kSignificantDigits);
  const std::string sign = value < 0 ? "-" : "";
  return sign + (picture.exponent ? exponentPicture(number, picture) : fixedPicture(number, picture));
}

}  // namespace vk
