#pragma once

#include <optional>
#include <string>
#include <string_view>

/// The one pair of reading rules and the one writing rule for numbers outside masks. Never locale dependent:
/// the decimal point is always ".".
namespace vk {

/// The value of a text that is a number as a whole: optional sign, digits with at most one point (at least one digit),
/// optional exponent `E` or `D` in either case with optional sign and at least one digit. Nothing for any other
/// text, the empty one and one with blanks included, and for a number beyond the range of a double.
std::optional<double> numberIn(std::string_view text);

/// How many characters of the text, from its first one on, are a number as above, whatever its size; 0 when there is
/// none.
std::size_t numberLength(std::string_view text);

/// True when there is such a value.
bool isNumeric(std::string_view text);

/// The value of the longest prefix, after leading blanks, that `isNumeric` accepts; 0 when there is none.
double scanNumber(std::string_view text);

/// The general text of a number: at most 15 significant digits, no zero before the point, fixed notation
/// below 1E15 while at most 15 decimals are needed, else "d.ddE+xx". No leading blank.
std::string generalText(double value);
/// The same with at most 7 significant digits.
std::string generalText(float value);
std::string generalText(int value);

/// The general text with a leading blank in place of the sign of a number not below zero.
std::string signedText(double value);
std::string signedText(int value);

/// The exponent of a number as written behind its mantissa: "E", the sign, at least two digits.
std::string exponentText(int exponent);

/// The decimal digits of |value| cut to `significant` digits by "%.{n-1}e" rounding:
/// |value| = 0.d1d2d3... * 10^exponent with d1 not 0; for 0 all digits are 0 and the exponent is 0.
struct DecimalDigits {
  std::string digits;
  int exponent = 0;
};
DecimalDigits decimalDigits(double value, int significant);

}  // namespace vk
