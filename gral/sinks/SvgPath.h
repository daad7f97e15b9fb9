#pragma once

#include <string>

#include "gral/DrawingSink.h"

namespace vk {

/// A number of an SVG document, to the hundredth.
std::string svgNumber(double value);

/// The description of a path. Its places are whole twips, a tenth of a pixel at 300 to the inch at most from where
/// they were; each is told as the way from the one before, which is shorter than the place.
class SvgPath {
 public:
  explicit SvgPath(double twipsPerPixel) : twipsPerPixel_(twipsPerPixel) {}

  const std::string& text() const { return text_; }
  bool empty() const { return text_.empty(); }
  void clear() { text_.clear(); }
  /// From the first point to the last.
  void join(std::span<const PixelPoint> points, bool closed);
  /// Goes on where the line before has ended.
  void line(const TwipPoint& from, const TwipPoint& to);

 private:
  void moveTo(long x, long y);
  void lineTo(long x, long y);
  void way(char command, long dx, long dy);

  double twipsPerPixel_;
  std::string text_;
  long x_ = 0, y_ = 0;
};

}  // namespace vk
