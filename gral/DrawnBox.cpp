#include "gral/DrawnBox.h"

#include <algorithm>
#include <cmath>
#include <numbers>

#include "base/CheckedMath.h"

namespace vk {
namespace {

/// Some seven widths of a page: what a figure has near its page is drawn as it is told.
constexpr double kMargin = 1E5;

void requireFinite(const PlanePoint& p) {
  checked::finite(p.x);
  checked::finite(p.y);
}

/// Far more than a curve needs that crosses the box; where numbers no longer tell its points apart, an end.
constexpr int kMostHalvings = 20000;

using Coordinate = double PlanePoint::*;

/// The point of a line at which a coordinate has a value. Wide arithmetic: the ends may be far apart.
PlanePoint pointAt(const PlanePoint& a, const PlanePoint& b, Coordinate across, double value) {
  const Coordinate along = across == &PlanePoint::x ? &PlanePoint::y : &PlanePoint::x;
  const long double from = a.*along, to = b.*along, start = a.*across, end = b.*across;
  PlanePoint p;
  p.*across = value;
  p.*along = static_cast<double>(from + (to - from) * ((value - start) / (end - start)));
  return p;
}

/// One of the four sides: what lies beyond is cut.
struct Side {
  Coordinate across;
  double limit;
  bool upper;

  bool holds(const PlanePoint& p) const { return upper ? p.*across <= limit : p.*across >= limit; }
  PlanePoint crossing(const PlanePoint& a, const PlanePoint& b) const { return pointAt(a, b, across, limit); }
};

std::array<Side, 4> sidesOf(const DrawnBox& box) {
  return {{{&PlanePoint::x, box.low.x, false},
           {&PlanePoint::x, box.high.x, true},
           {&PlanePoint::y, box.low.y, false},
           {&PlanePoint::y, box.high.y, true}}};
}

std::vector<PlanePoint> behindSide(const Side& side, const std::vector<PlanePoint>& outline) {
  std::vector<PlanePoint> result;
  for (std::size_t i = 0; i < outline.size(); ++i) {
    const PlanePoint& from = outline[i == 0 ? outline.size() - 1 : i - 1];
    const PlanePoint& to = outline[i];
    if (side.holds(from) != side.holds(to)) result.push_back(side.crossing(from, to));
    if (side.holds(to)) result.push_back(to);
  }
  return result;
}

/// The parts of what is drawn in one go; a gap begins a new one.
class Parts {
 public:
  void from(const PlanePoint& start) {
    if (!open_) parts_.push_back({start});
    open_ = true;
  }
  void to(const PlanePoint& point) { parts_.back().push_back(point); }
  void gap() { open_ = false; }
  std::vector<std::vector<PlanePoint>> take() { return std::move(parts_); }

 private:
  std::vector<std::vector<PlanePoint>> parts_;
  bool open_ = false;
};

using CurvePiece = std::array<PlanePoint, 4>;

PlanePoint between(const PlanePoint& a, const PlanePoint& b) {
  return 0.5 * a + 0.5 * b;
}

/// Halves a piece of a curve until each lies within the box, or has nothing in common with it, or can no longer
/// be seen.
class CurveCutter {
 public:
  CurveCutter(const DrawnBox& box, Parts& parts) : box_(box), parts_(parts) {}

  void add(const CurvePiece& p) {
    const auto [left, right] = std::minmax({p[0].x, p[1].x, p[2].x, p[3].x});
    const auto [top, bottom] = std::minmax({p[0].y, p[1].y, p[2].y, p[3].y});
    const PlanePoint low{left, top}, high{right, bottom};
    if (box_.holds(low, high)) return keep(p);
    const bool tiny = std::max(right - left, bottom - top) < 1;
    if (tiny || box_.misses(low, high) || --halvings_ < 0) return parts_.gap();
    const PlanePoint a = between(p[0], p[1]), b = between(p[1], p[2]), c = between(p[2], p[3]);
    const PlanePoint ab = between(a, b), bc = between(b, c), middle = between(ab, bc);
    add({p[0], a, ab, middle});
    add({middle, bc, c, p[3]});
  }

 private:
  void keep(const CurvePiece& p) {
    parts_.from(p[0]);
    for (const PlanePoint& point : std::span(p).subspan(1)) parts_.to(point);
  }

  const DrawnBox& box_;
  Parts& parts_;
  int halvings_ = kMostHalvings;
};

/// Halves an arc until it is its chord, to the unit, or has nothing in common with the box.
class ArcCutter {
 public:
  ArcCutter(const DrawnBox& box, const PlanePoint& centre, double radius)
      : box_(box), centre_(centre), radius_(radius) {}

  PlanePoint at(double angle) const {
    return centre_ + radius_ * PlanePoint{std::cos(angle), std::sin(angle)};
  }

  void add(double from, double to) {
    const PlanePoint a = at(from), b = at(to);
    const double rise = radius_ * (1 - std::cos((to - from) / 2));
    const PlanePoint low{std::min(a.x, b.x) - rise, std::min(a.y, b.y) - rise};
    const PlanePoint high{std::max(a.x, b.x) + rise, std::max(a.y, b.y) + rise};
    if (rise <= 1 || box_.misses(low, high) || --halvings_ < 0) return outline.push_back(b);
    const double middle = (from + to) / 2;
    add(from, middle);
    add(middle, to);
  }

  std::vector<PlanePoint> outline;

 private:
  const DrawnBox& box_;
  PlanePoint centre_;
  double radius_;
  int halvings_ = kMostHalvings;
};

}  // namespace

PlanePoint DrawnBox::nearest(const PlanePoint& p) const {
  return {std::clamp(p.x, low.x, high.x), std::clamp(p.y, low.y, high.y)};
}

DrawnBox drawnTwips(const Device& device) {
  const double margin = kMargin + device.DrawWidth() * device.TwipsPerPixelX();
  return {{-margin, -margin}, {device.areaWidth() + margin, device.areaHeight() + margin}};
}

DrawnBox drawnPixels(const Device& device) {
  const DrawnBox twips = drawnTwips(device);
  const double perTwip = 1 / device.twipsPerContextPixel();
  return {perTwip * twips.low, perTwip * twips.high};
}

bool cutLine(const DrawnBox& box, PlanePoint& a, PlanePoint& b) {
  requireFinite(a);
  requireFinite(b);
  for (const Side& side : sidesOf(box)) {
    const bool first = side.holds(a), second = side.holds(b);
    if (!first && !second) return false;
    if (!first) a = side.crossing(a, b);
    if (!second) b = side.crossing(a, b);
  }
  return true;
}

std::vector<std::vector<PlanePoint>> cutPolyline(const DrawnBox& box, std::span<const PlanePoint> points) {
  Parts parts;
  for (std::size_t i = 1; i < points.size(); ++i) {
    PlanePoint a = points[i - 1], b = points[i];
    if (cutLine(box, a, b)) {
      parts.from(a);
      parts.to(b);
    }
    if (!box.holds(points[i])) parts.gap();
  }
  return parts.take();
}

std::vector<std::vector<PlanePoint>> cutCurve(const DrawnBox& box, std::span<const PlanePoint> points) {
  for (const PlanePoint& p : points) requireFinite(p);
  Parts parts;
  for (std::size_t k = 0; k + 3 < points.size(); k += 3) {
    CurveCutter(box, parts).add({points[k], points[k + 1], points[k + 2], points[k + 3]});
  }
  return parts.take();
}

std::vector<PlanePoint> cutArea(const DrawnBox& box, std::span<const PlanePoint> outline) {
  for (const PlanePoint& p : outline) requireFinite(p);
  std::vector<PlanePoint> result(outline.begin(), outline.end());
  for (const Side& side : sidesOf(box)) {
    if (!std::all_of(result.begin(), result.end(), [&](const PlanePoint& p) { return side.holds(p); })) {
      result = behindSide(side, result);
    }
  }
  return result;
}

std::vector<PlanePoint> cutCircle(const DrawnBox& box, const PlanePoint& centre, double radius) {
  requireFinite(centre);
  ArcCutter arcs(box, centre, checked::finite(radius));
  constexpr int kArcs = 8;
  constexpr double kArc = 2 * std::numbers::pi / kArcs;
  for (int i = 0; i < kArcs; ++i) arcs.add(i * kArc, (i + 1) * kArc);
  return cutArea(box, arcs.outline);
}

}  // namespace vk
