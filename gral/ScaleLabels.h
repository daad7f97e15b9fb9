#pragma once

#include <string>
#include <string_view>

/// The pieces of which the labels of an axis are made.
namespace vk {

/// Width of a letter of an exponent, as a part of the normal width.
inline constexpr double kScriptWidth = 0.75;

/// Number of digits behind the point; 0 for a number in exponent form.
int decimalsOf(std::string_view number);

/// The number with this many decimals: a point and zeros are added, and a zero before the point. With 0
/// decimals, or in exponent form, the number stays as it is.
std::string fillDecimals(std::string_view number, int decimals);

/// Blanks in front up to a width in characters.
std::string padInFront(std::string_view label, int width);

/// The power of ten with this exponent as markup, the digits of the exponent flush right in `width`
/// characters with the sign kept first.
std::string decadeLabel(std::string_view exponent, int width);

}  // namespace vk
