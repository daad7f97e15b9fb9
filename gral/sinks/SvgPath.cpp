#include "gral/sinks/SvgPath.h"

#include <charconv>
#include <cmath>

#include "base/Rounding.h"

namespace vk {
namespace {

void append(std::string& text, long number) {
  char digits[24];
  text.append(digits, std::to_chars(digits, digits + sizeof digits, number).ptr);
}

}  // namespace

std::string svgNumber(double value) {
  constexpr long kHundredths = 100, kTenths = 10;
  const long hundredths = std::lround(roundHalfEven(value * kHundredths));
  const long size = std::abs(hundredths), part = size % kHundredths;
  std::string text = hundredths < 0 ? "-" : "";
  append(text, size / kHundredths);
  if (part == 0) return text;
  text += part < kTenths ? ".0" : ".";
  append(text, part % kTenths == 0 ? part / kTenths : part);
  return text;
}

void SvgPath::way(char command, long dx, long dy) {
  text_ += command;
  append(text_, dx);
  if (dy >= 0) text_ += ' ';
  append(text_, dy);
}

void SvgPath::moveTo(long x, long y) {
  if (text_.empty()) {
    way('M', x, y);
  } else {
    way('m', x - x_, y - y_);
  }
  x_ = x;
  y_ = y;
}

void SvgPath::lineTo(long x, long y) {
  if (y == y_) {
    text_ += 'h';
    append(text_, x - x_);
  } else if (x == x_) {
    text_ += 'v';
    append(text_, y - y_);
  } else {
    way('l', x - x_, y - y_);
  }
  x_ = x;
  y_ = y;
}

void SvgPath::line(const TwipPoint& from, const TwipPoint& to) {
  const long x = std::lround(from.x), y = std::lround(from.y);
  if (text_.empty() || x != x_ || y != y_) moveTo(x, y);
  lineTo(std::lround(to.x), std::lround(to.y));
}

void SvgPath::join(std::span<const PixelPoint> points, bool closed) {
  for (std::size_t i = 0; i < points.size(); ++i) {
    const long x = std::lround(points[i].x * twipsPerPixel_), y = std::lround(points[i].y * twipsPerPixel_);
    i == 0 ? moveTo(x, y) : lineTo(x, y);
  }
  if (closed) text_ += 'z';
}

}  // namespace vk
