/// Unit SubMod: numbers through masks.
#pragma once

#include <string>

#include "base/NumberText.h"

/// A mask is a picture of a field: blanks as margins, "#" for digits, at most one ".", "^^^^" at the end for
/// the exponent form. The first position of the field is kept for a sign.
namespace vk {

/// The digit picture that a mask stands for: its first "#" is left out, decimals become "0".
std::string MaskPattern(const std::string& mask);

/// A mask that has been read: its picture, and how many characters its margins and the field between them have.
struct NumberMask {
  NumberMask(const char* mask) : NumberMask(std::string(mask)) {}
  NumberMask(const std::string& mask);

  std::string pattern;
  int lead, width, trail;
};

/// The text at the right end of the mask's field, with its margins.
std::string inMask(std::string_view text, const NumberMask& mask);

/// The value in exactly the mask's length, right-aligned; a value that does not fit gives asterisks.
std::string FormatMask(double value, const NumberMask& mask);

/// The general text of the value, or its text under "#.######^^^^" where that is not longer. For entry fields.
std::string FormatCompact(double value);

/// `FormatPattern` with a blank in front unless it begins with "-".
std::string FormatSigned(double value, const std::string& pattern);

/// The value under a digit picture: "#" a digit without leading zeros, "0" a decimal, "E+00" the exponent form.
/// Halves are rounded away from zero on the decimal digits of the 15-digit text; a negative value that rounds
/// to zero keeps its sign. The empty pattern gives the general text.
std::string FormatPattern(double value, const std::string& pattern = "");

}  // namespace vk
