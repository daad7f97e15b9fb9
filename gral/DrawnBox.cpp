#include "gral/DrawnBox.h"

#include <algorithm>
#include <cmath>
#include <numbers>

#include "base/CheckedMath.h"

namespace vk {
namespace {

/// Some seven widths of a page: what a figure has near its page is drawn as it is told.
constexpr double kMargin = 1E5;

template <class Unit>
void requireFinite(const PlanePoint<Unit>& p) {
  checked::finite(p.x);
  checked::finite(p.y);
}

/// Far more than a curve needs that crosses the box; where numbers no longer tell its points apart, an end.
constexpr int kMostHalvings = 20000;

template <class Unit>
using Coordinate = double PlanePoint<Unit>::*;

/// The point of a line at which a coordinate has a value. Wide arithmetic: the ends may be far apart.
template <class Unit>
PlanePoint<Unit> pointAt(const PlanePoint<Unit>& a, const PlanePoint<Unit>& b, Coordinate<Unit> across,
                         double value) {
  using Place = PlanePoint<Unit>;
  const Coordinate<Unit> along = across == &Place::x ? &Place::y : &Place::x;
  const long double from = a.*along, to = b.*along, start = a.*across, end = b.*across;
  Place p;
  p.*across = value;
  p.*along = static_cast<double>(from + (to - from) * ((value - start) / (end - start)));
  return p;
}

/// One of the four sides: what lies beyond is cut.
template <class Unit>
struct Side {
  using Place = PlanePoint<Unit>;
  Coordinate<Unit> across;
  double limit;
  bool upper;

  bool holds(const Place& p) const { return upper ? p.*across <= limit : p.*across >= limit; }
  Place crossing(const Place& a, const Place& b) const { return pointAt(a, b, across, limit); }
};

template <class Unit>
std::array<Side<Unit>, 4> sidesOf(const DrawnBox<Unit>& box) {
  using Place = PlanePoint<Unit>;
  return {{{&Place::x, box.low.x, false},
           {&Place::x, box.high.x, true},
           {&Place::y, box.low.y, false},
           {&Place::y, box.high.y, true}}};
}

template <class Unit>
std::vector<PlanePoint<Unit>> behindSide(const Side<Unit>& side,
                                         const std::vector<PlanePoint<Unit>>& outline) {
  std::vector<PlanePoint<Unit>> result;
  for (std::size_t i = 0; i < outline.size(); ++i) {
    const PlanePoint<Unit>& from = outline[i == 0 ? outline.size() - 1 : i - 1];
    const PlanePoint<Unit>& to = outline[i];
    if (side.holds(from) != side.holds(to)) result.push_back(side.crossing(from, to));
    if (side.holds(to)) result.push_back(to);
  }
  return result;
}

/// The parts of what is drawn in one go; a gap begins a new one.
class Parts {
 public:
  void from(const PixelPlace& start) {
    if (!open_) parts_.push_back({start});
    open_ = true;
  }
  void to(const PixelPlace& point) { parts_.back().push_back(point); }
  void gap() { open_ = false; }
  std::vector<std::vector<PixelPlace>> take() { return std::move(parts_); }

 private:
  std::vector<std::vector<PixelPlace>> parts_;
  bool open_ = false;
};

using CurvePiece = std::array<PixelPlace, 4>;

PixelPlace between(const PixelPlace& a, const PixelPlace& b) {
  return 0.5 * a + 0.5 * b;
}

/// Halves a piece of a curve until each lies within the box, or has nothing in common with it, or can no longer
/// be seen.
class CurveCutter {
 public:
  CurveCutter(const DrawnBox<unit::Pixel>& box, Parts& parts) : box_(box), parts_(parts) {}

  void add(const CurvePiece& p) {
    const auto [left, right] = std::minmax({p[0].x, p[1].x, p[2].x, p[3].x});
    const auto [top, bottom] = std::minmax({p[0].y, p[1].y, p[2].y, p[3].y});
    const PixelPlace low{left, top}, high{right, bottom};
    if (box_.holds(low, high)) return keep(p);
    const bool tiny = std::max(right - left, bottom - top) < 1;
    if (tiny || box_.misses(low, high) || --halvings_ < 0) return parts_.gap();
    const PixelPlace a = between(p[0], p[1]), b = between(p[1], p[2]), c = between(p[2], p[3]);
    const PixelPlace ab = between(a, b), bc = between(b, c), middle = between(ab, bc);
    add({p[0], a, ab, middle});
    add({middle, bc, c, p[3]});
  }

 private:
  void keep(const CurvePiece& p) {
    parts_.from(p[0]);
    for (const PixelPlace& point : std::span(p).subspan(1)) parts_.to(point);
  }

  const DrawnBox<unit::Pixel>& box_;
  Parts& parts_;
  int halvings_ = kMostHalvings;
};

/// Halves an arc until it is its chord, to the unit, or has nothing in common with the box.
class ArcCutter {
 public:
  ArcCutter(const DrawnBox<unit::Twip>& box, const TwipPoint& centre, double radius)
      : box_(box), centre_(centre), radius_(radius) {}

  TwipPoint at(double angle) const { return centre_ + radius_ * TwipPoint{std::cos(angle), std::sin(angle)}; }

  void add(double from, double to) {
    const TwipPoint a = at(from), b = at(to);
    const double rise = radius_ * (1 - std::cos((to - from) / 2));
    const TwipPoint low{std::min(a.x, b.x) - rise, std::min(a.y, b.y) - rise};
    const TwipPoint high{std::max(a.x, b.x) + rise, std::max(a.y, b.y) + rise};
    if (rise <= 1 || box_.misses(low, high) || --halvings_ < 0) return outline.push_back(b);
    const double middle = (from + to) / 2;
    add(from, middle);
    add(middle, to);
  }

  std::vector<TwipPoint> outline;

 private:
  const DrawnBox<unit::Twip>& box_;
  TwipPoint centre_;
  double radius_;
  int halvings_ = kMostHalvings;
};

}  // namespace

DrawnBox<unit::Twip> drawnTwips(const Device& device) {
  const double margin = kMargin + device.DrawWidth() * device.TwipsPerPixelX();
  return {{-margin, -margin}, {device.area().width + margin, device.area().height + margin}};
}

DrawnBox<unit::Pixel> drawnPixels(const Device& device) {
  const DrawnBox<unit::Twip> twips = drawnTwips(device);
  const double pixel = device.twipsPerContextPixel();
  return {toPixels(twips.low, pixel), toPixels(twips.high, pixel)};
}

template <class Unit>
bool cutLine(const DrawnBox<Unit>& box, PlanePoint<Unit>& a, PlanePoint<Unit>& b) {
  requireFinite(a);
  requireFinite(b);
  for (const Side<Unit>& side : sidesOf(box)) {
    const bool first = side.holds(a), second = side.holds(b);
    if (!first && !second) return false;
    if (!first) a = side.crossing(a, b);
    if (!second) b = side.crossing(a, b);
  }
  return true;
}

std::vector<std::vector<PixelPlace>> cutPolyline(const DrawnBox<unit::Pixel>& box,
                                                 std::span<const PixelPlace> points) {
  Parts parts;
  for (std::size_t i = 1; i < points.size(); ++i) {
    PixelPlace a = points[i - 1], b = points[i];
    if (cutLine(box, a, b)) {
      parts.from(a);
      parts.to(b);
    }
    if (!box.holds(points[i])) parts.gap();
  }
  return parts.take();
}

std::vector<std::vector<PixelPlace>> cutCurve(const DrawnBox<unit::Pixel>& box,
                                              std::span<const PixelPlace> points) {
  for (const PixelPlace& p : points) requireFinite(p);
  Parts parts;
  for (std::size_t k = 0; k + 3 < points.size(); k += 3) {
    CurveCutter(box, parts).add({points[k], points[k + 1], points[k + 2], points[k + 3]});
  }
  return parts.take();
}

template <class Unit>
std::vector<PlanePoint<Unit>> cutArea(const DrawnBox<Unit>& box, std::vector<PlanePoint<Unit>> outline) {
  for (const PlanePoint<Unit>& p : outline) requireFinite(p);
  for (const Side<Unit>& side : sidesOf(box)) {
    if (!std::ranges::all_of(outline, [&](const PlanePoint<Unit>& p) { return side.holds(p); })) {
      outline = behindSide(side, outline);
    }
  }
  return outline;
}

std::vector<TwipPoint> cutCircle(const DrawnBox<unit::Twip>& box, const TwipPoint& centre, Twips radius) {
  requireFinite(centre);
  ArcCutter arcs(box, centre, checked::finite(radius.value()));
  constexpr int kArcs = 8;
  constexpr double kArc = 2 * std::numbers::pi / kArcs;
  for (int i = 0; i < kArcs; ++i) arcs.add(i * kArc, (i + 1) * kArc);
  return cutArea(box, std::move(arcs.outline));
}

template bool cutLine(const DrawnBox<unit::Twip>&, TwipPoint&, TwipPoint&);
template std::vector<PixelPlace> cutArea(const DrawnBox<unit::Pixel>&, std::vector<PixelPlace>);

}  // namespace vk
