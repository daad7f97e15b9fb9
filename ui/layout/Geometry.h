#pragma once

#include <cstdint>

namespace vk {

/// Twips of a nominal pixel, on every screen.
inline constexpr int kTwipsPerPixel = 15;

/// A place on the screen or in a form, in twips.
struct Rect {
  double left = 0, top = 0, width = 0, height = 0;
  double right() const { return left + width; }
  double bottom() const { return top + height; }
  bool operator==(const Rect&) const = default;
};

struct Size {
  double width = 0, height = 0;
  bool operator==(const Size&) const = default;
};

/// A colour as 0xRRGGBB.
using Colour = std::uint32_t;
constexpr Colour RGB(int red, int green, int blue) {
  return static_cast<Colour>(red << 16 | green << 8 | blue);
}
inline constexpr Colour kInkBlack = RGB(0, 0, 0);
inline constexpr Colour kPaperWhite = RGB(255, 255, 255);

}  // namespace vk
