#include "gral/sinks/SvgMarkup.h"

#include <charconv>
#include <cmath>

#include "base/Rounding.h"

namespace vk {

void svgAppend(std::string& text, long number) {
  char digits[24];
  text.append(digits, std::to_chars(digits, digits + sizeof digits, number).ptr);
}

std::string svgNumber(double value) {
  constexpr long kHundredths = 100, kTenths = 10;
  const long hundredths = std::lround(roundHalfEven(value * kHundredths));
  const long size = std::abs(hundredths), part = size % kHundredths;
  std::string text = hundredths < 0 ? "-" : "";
  svgAppend(text, size / kHundredths);
  if (part == 0) return text;
  text += part < kTenths ? ".0" : ".";
  svgAppend(text, part % kTenths == 0 ? part / kTenths : part);
  return text;
}

std::string svgAttribute(std::string_view name, std::string_view value) {
  std::string text;
  text.reserve(name.size() + value.size() + 4);
  return text.append(" ").append(name).append("=\"").append(value).append("\"");
}

std::string svgColour(Colour color) {
  constexpr char kDigits[] = "0123456789abcdef";
  std::string text = "#";
  for (int shift = 20; shift >= 0; shift -= 4) text += kDigits[color.rgb() >> shift & 15];
  return text;
}

std::string svgEscaped(std::string_view utf8) {
  std::string result;
  for (const char c : utf8) {
    if (c == '&') {
      result += "&amp;";
    } else if (c == '<') {
      result += "&lt;";
    } else if (c == '>') {
      result += "&gt;";
    } else if (static_cast<unsigned char>(c) >= ' ') {
      result += c;
    }
  }
  return result;
}

}  // namespace vk
