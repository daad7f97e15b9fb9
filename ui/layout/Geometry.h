#pragma once

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

}  // namespace vk
