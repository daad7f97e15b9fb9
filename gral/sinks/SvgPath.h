#pragma once

#include <compare>
#include <optional>
#include <string>

#include "gral/DrawingSink.h"

namespace vk {

/// The description of a path. Its places are whole twips, a tenth of a pixel at 300 to the inch at most from where
/// they were; each is told as the way from the one before, which is shorter than the place.
class SvgPath {
 public:
  explicit SvgPath(double twipsPerPixel) : twipsPerPixel_(twipsPerPixel) {}

  bool empty() const { return text_.empty() && !waiting_; }
  std::size_t size() const { return text_.size(); }
  /// The description, which begins anew.
  std::string take();
  /// From the first point to the last.
  void join(std::span<const PixelPoint> points, bool closed);
  /// Goes on where the line before has ended. Of lines without dashes what is drawn counts, not the way: the cap of a
  /// bar comes before it, and lines are taken from either end.
  void line(const TwipPoint& from, const TwipPoint& to, bool dashed);

 private:
  struct Place {
    long x, y;
    auto operator<=>(const Place&) const = default;
  };
  struct Line {
    Place from, to;
    /// Between its ends, for a line along a side of the page.
    bool crosses(const Place& place) const;
  };

  void draw(const Line& line);
  void drawWaiting();
  void moveTo(const Place& place);
  void lineTo(const Place& place);
  void command(char name, long number);
  void second(long number);

  double twipsPerPixel_;
  std::string text_;
  char command_ = 0;  ///< the one whose numbers may go on
  Place pen_{};
  Line last_{};
  std::optional<Line> waiting_;  ///< a line without dashes that its cap may come before
};

}  // namespace vk
