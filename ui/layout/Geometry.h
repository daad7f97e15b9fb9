#pragma once

namespace vk {

/// Twips, as all lengths of layouts.
struct Size {
  double width = 0, height = 0;
  bool operator==(const Size&) const = default;
};

constexpr Size operator+(const Size& a, const Size& b) {
  return {a.width + b.width, a.height + b.height};
}
constexpr Size operator-(const Size& a, const Size& b) {
  return {a.width - b.width, a.height - b.height};
}

/// A place on the screen or in a form, in twips.
struct Rect {
  double left = 0, top = 0, width = 0, height = 0;
  double right() const { return left + width; }
  double bottom() const { return top + height; }
  Size size() const { return {width, height}; }
  bool operator==(const Rect&) const = default;
};

}  // namespace vk
