#include "gral/sinks/Raster.h"

#include <algorithm>
#include <cmath>

namespace vk {
namespace {

constexpr double kFarthestRadius = 1E9;
/// Half widths of circles up to this radius are kept: marks are many circles of one size.
constexpr double kLargestKeptRadius = 512;
constexpr PixelRect kNothing{INT32_MAX, INT32_MAX, INT32_MIN, INT32_MIN};

/// The whole number at or above x, within the limits.
int ceilWithin(double x, int low, int high) {
  const double near = std::clamp(x, static_cast<double>(low), static_cast<double>(high));
  const int whole = static_cast<int>(near);
  return whole + (near > whole ? 1 : 0);
}

int within(std::int64_t value, int low, int high) {
  return static_cast<int>(std::clamp<std::int64_t>(value, low, high));
}

/// The whole number at or below x, which fits.
int floorOf(double x) {
  const int whole = static_cast<int>(x);
  return whole - (x < whole ? 1 : 0);
}

/// How far a circle reaches from its middle, in a row so far from it; -1 outside.
int halfWidth(double radius, double dy) {
  const double square = radius * radius - dy * dy;
  return radius < 0 || square < 0 ? -1 : static_cast<int>(std::min(std::sqrt(square), kFarthestRadius));
}

/// At least one pixel. A row is mostly as wide as a thin pen, for which a loop takes longer than a pixel set twice.
void paintPixels(std::uint32_t* pixel, int count, std::uint32_t color) {
  if (count > 2) {
    std::fill_n(pixel, count, color);
  } else {
    pixel[0] = pixel[count - 1] = color;
  }
}

bool isPainted(const Brush& brush, int x, int y) {
  return brush.style == kFillSolid || onHatch(brush.style, x, y, brush.cell);
}

}  // namespace

Nib::Nib(int width) : width_(width) {
  if (!hasRows()) return;
  const double centre = (width - 1) / 2.0;
  const double radius = width / 2.0;
  for (int i = 0; i < width; ++i) {
    const double reach = std::sqrt(radius * radius - (i - centre) * (i - centre));
    const int first = static_cast<int>(std::ceil(centre - reach));
    const int last = static_cast<int>(std::floor(centre + reach));
    rows_.push_back({i - width / 2, std::max(first, 0) - width / 2, std::min(last, width - 1) - width / 2});
  }
}

void Raster::reset(int width, int height, std::uint32_t color) {
  // A form is cleared several times, in several sizes, while it is opened: the pixels are made when something
  // is drawn or asked for.
  width_ = width;
  height_ = height;
  ground_ = color;
  pixels_.clear();
  clip(nullptr);
  changed_ = {0, 0, width, height};
  drawn_ = touched_ = kNothing;
}

void Raster::makePixels() const {
  pixels_.assign(static_cast<std::size_t>(width_) * static_cast<std::size_t>(height_), ground_);
}

void Raster::clip(const PixelRect* region) {
  clip_ = {0, 0, width_, height_};
  if (region == nullptr) return;
  const auto within = [](int value, int size) { return std::clamp(value, 0, size); };
  clip_ = {within(region->x1, width_), within(region->y1, height_), within(region->x2, width_),
           within(region->y2, height_)};
  clip_.x2 = std::max(clip_.x1, clip_.x2);
  clip_.y2 = std::max(clip_.y1, clip_.y2);
}

void Raster::widenTouched(const PixelRect& part) {
  if (pixels_.empty()) makePixels();
  for (PixelRect* known : {&touched_, &drawn_, &changed_}) {
    *known = {std::min(known->x1, part.x1), std::min(known->y1, part.y1), std::max(known->x2, part.x2),
              std::max(known->y2, part.y2)};
  }
}

PixelRect Raster::takeChanged() {
  const PixelRect changed = changed_;
  changed_ = touched_ = kNothing;
  return changed == kNothing ? PixelRect{} : changed;
}

void Raster::set(int x, int y, std::uint32_t color) {
  span(y, x, x + 1, color);
}

void Raster::span(int y, int x1, int x2, std::uint32_t color) {
  if (y < clip_.y1 || y >= clip_.y2) return;
  x1 = std::max(x1, clip_.x1);
  x2 = std::min(x2, clip_.x2);
  if (x1 >= x2) return;
  touch({x1, y, x2, y + 1});
  paintPixels(&pixels_[index(x1, y)], x2 - x1, color);
}

void Raster::block(const PixelRect& rectangle, std::uint32_t color) {
  const PixelRect seen{std::max(rectangle.x1, clip_.x1), std::max(rectangle.y1, clip_.y1),
                       std::min(rectangle.x2, clip_.x2), std::min(rectangle.y2, clip_.y2)};
  if (seen.x1 >= seen.x2 || seen.y1 >= seen.y2) return;
  touch(seen);
  std::uint32_t* row = &pixels_[index(seen.x1, seen.y1)];
  for (int y = seen.y1; y < seen.y2; ++y, row += width_) paintPixels(row, seen.x2 - seen.x1, color);
}

void Raster::paint(int y, int x1, int x2, const Brush& brush) {
  if (brush.style == kFillSolid) return span(y, x1, x2, brush.color);
  if (brush.style == kFillTransparent || y < clip_.y1 || y >= clip_.y2) return;
  for (int x = std::max(x1, clip_.x1); x < std::min(x2, clip_.x2); ++x) {
    if (isPainted(brush, x, y)) set(x, y, brush.color);
  }
}

// ---- Lines

void Raster::line(PixelPoint a, PixelPoint b, const Nib& nib, std::uint32_t color) {
  if (!nib.hasRows()) return wideLine(a, b, nib.width(), color);
  if (a.y != b.y && a.x != b.x) return slantedLine(a, b, nib, color);
  straightLine({std::min(a.x, b.x), std::min(a.y, b.y)}, {std::max(a.x, b.x), std::max(a.y, b.y)}, nib,
               color);
}

/// A line along a side of the picture: the widest row of the tip all along it, the others beyond its ends.
void Raster::straightLine(PixelPoint low, PixelPoint high, const Nib& nib, std::uint32_t color) {
  for (const Nib::Row& row : nib.rows()) {
    const std::int64_t above = std::int64_t{row.y > 0 ? high.y : low.y} + row.y;
    const std::int64_t below = std::int64_t{row.y < 0 ? low.y : high.y} + row.y + 1;
    const int x1 = within(std::int64_t{low.x} + row.x1, clip_.x1, clip_.x2);
    const int x2 = within(std::int64_t{high.x} + row.x2 + 1, clip_.x1, clip_.x2);
    block({x1, within(above, clip_.y1, clip_.y2), x2, within(below, clip_.y1, clip_.y2)}, color);
  }
}

/// Steps along the longer side, a nib at each step; only the steps that can be seen.
void Raster::slantedLine(PixelPoint a, PixelPoint b, const Nib& nib, std::uint32_t color) {
  const double dx = static_cast<double>(b.x) - a.x, dy = static_cast<double>(b.y) - a.y;
  const bool flat = std::abs(dx) >= std::abs(dy);
  // u runs along the longer side, v across it
  const double u1 = flat ? a.x : a.y, v1 = flat ? a.y : a.x, u2 = flat ? b.x : b.y;
  const double slope = flat ? dy / dx : dx / dy;
  const auto eachStep = [&](double first, double last, auto use) {
    for (double u = first; u <= last; ++u) {
      const int step = static_cast<int>(u);
      const int across = floorOf(v1 + (u - u1) * slope + 0.5);
      flat ? use(step, across) : use(across, step);
    }
  };
  const auto [low, high] = std::minmax(u1, u2);
  if (seesWhole(a, nib) && seesWhole(b, nib)) {
    touchLine(a, b, nib);
    return eachStep(low, high, [&](int x, int y) {
      for (const Nib::Row& row : nib.rows())
        paintPixels(&pixels_[index(x + row.x1, y + row.y)], row.x2 - row.x1 + 1, color);
    });
  }
  const int margin = nib.width() + 1;
  const double uLow = (flat ? clip_.x1 : clip_.y1) - margin, uHigh = (flat ? clip_.x2 : clip_.y2) + margin;
  const double vLow = (flat ? clip_.y1 : clip_.x1) - margin, vHigh = (flat ? clip_.y2 : clip_.x2) + margin;
  const double atLow = u1 + (vLow - v1) / slope, atHigh = u1 + (vHigh - v1) / slope;
  eachStep(std::max({low, uLow, std::ceil(std::min(atLow, atHigh))}),
           std::min({high, uHigh, std::floor(std::max(atLow, atHigh))}), [&](int x, int y) {
             for (const Nib::Row& row : nib.rows()) span(y + row.y, x + row.x1, x + row.x2 + 1, color);
           });
}

bool Raster::seesWhole(PixelPoint place, const Nib& nib) const {
  const Nib::Row& widest = nib.row(0);
  return place.x >= clip_.x1 - widest.x1 && place.x < clip_.x2 - widest.x2 &&
         place.y >= clip_.y1 - nib.rows().front().y && place.y < clip_.y2 - nib.rows().back().y;
}

void Raster::touchLine(PixelPoint a, PixelPoint b, const Nib& nib) {
  const Nib::Row& widest = nib.row(0);
  touch({std::min(a.x, b.x) + widest.x1, std::min(a.y, b.y) + nib.rows().front().y,
         std::max(a.x, b.x) + widest.x2 + 1, std::max(a.y, b.y) + nib.rows().back().y + 1});
}

/// The pixels within half a width of the line, row by row; of an even width the tip's centre lies half a pixel
/// left and above.
void Raster::wideLine(PixelPoint a, PixelPoint b, int width, std::uint32_t color) {
  const double centre = width % 2 == 0 ? -0.5 : 0, radius = width / 2.0;
  const double ax = a.x + centre, ay = a.y + centre, bx = b.x + centre, by = b.y + centre;
  const double dx = bx - ax, dy = by - ay, length = std::hypot(dx, dy);
  const double left = std::min(ax, bx) - radius - 1, right = std::max(ax, bx) + radius + 1;
  const int first = ceilWithin(std::min(ay, by) - radius, clip_.y1, clip_.y2);
  const int last = ceilWithin(std::floor(std::max(ay, by) + radius) + 1, clip_.y1, clip_.y2);
  for (int y = first; y < last; ++y) {
    double from = right, to = left;
    const auto reach = [&](double x1, double x2) {
      from = std::min(from, x1);
      to = std::max(to, x2);
    };
    const auto roundEnd = [&](double x, double yEnd) {
      const double square = radius * radius - (y - yEnd) * (y - yEnd);
      if (square >= 0) reach(x - std::sqrt(square), x + std::sqrt(square));
    };
    const auto side = [&](double shift) {
      const double beyond = (y - ay - shift * dx / length) / dy;  // part of the line that lies above
      if (beyond < 0 || beyond > 1) return;
      const double x = ax - shift * dy / length + beyond * dx;
      reach(x, x);
    };
    roundEnd(ax, ay);
    roundEnd(bx, by);
    if (dy != 0) {
      side(radius);
      side(-radius);
    }
    span(y, ceilWithin(from, clip_.x1, clip_.x2), ceilWithin(std::floor(to) + 1, clip_.x1, clip_.x2), color);
  }
}

// ---- Areas

void Raster::polygon(std::span<const PixelPoint> points, const Brush& brush) {
  if (points.size() < 3) return;
  const auto [lowest, highest] = std::minmax_element(
      points.begin(), points.end(), [](const PixelPoint& a, const PixelPoint& b) { return a.y < b.y; });
  const int first = std::max(lowest->y, clip_.y1), last = std::min(highest->y, clip_.y2);
  edges_.clear();
  for (std::size_t i = 0; i < points.size(); ++i) {
    PixelPoint upper = points[i], lower = points[i + 1 < points.size() ? i + 1 : 0];
    if (upper.y > lower.y) std::swap(upper, lower);
    if (upper.y >= last || lower.y <= first || upper.y == lower.y) continue;
    const double height = static_cast<double>(lower.y) - upper.y;
    edges_.push_back({upper, lower.y, (static_cast<double>(lower.x) - upper.x) / height});
  }
  for (int y = first; y < last; ++y) {
    crossings_.clear();
    for (const Edge& edge : edges_) {
      if (y < edge.upper.y || y >= edge.lower) continue;
      crossings_.push_back(edge.upper.x + (static_cast<double>(y) - edge.upper.y) * edge.slope);
    }
    std::sort(crossings_.begin(), crossings_.end());
    for (std::size_t i = 0; i + 1 < crossings_.size(); i += 2) {
      paint(y, ceilWithin(crossings_[i], clip_.x1, clip_.x2),
            ceilWithin(crossings_[i + 1], clip_.x1, clip_.x2), brush);
    }
  }
}

/// The half widths of a circle in the rows from its middle, as far as they are kept.
const std::vector<int>* Raster::keptHalfWidths(double radius) {
  if (radius < 0 || radius > kLargestKeptRadius) return nullptr;
  for (std::size_t i = 0; i < circles_.size(); ++i) {
    if (circles_[i].radius != radius) continue;
    lastCircle_ = i;
    return &circles_[i].halfWidths;
  }
  lastCircle_ = 1 - lastCircle_;
  KeptCircle& circle = circles_[lastCircle_];
  circle = {radius, {}};
  for (int dy = 0; dy <= radius + 1; ++dy) circle.halfWidths.push_back(halfWidth(radius, dy));
  return &circle.halfWidths;
}

void Raster::ring(PixelPoint centre, double innerRadius, double outerRadius, const Brush& brush) {
  const std::vector<int>*outerRows = keptHalfWidths(outerRadius), *innerRows = keptHalfWidths(innerRadius);
  const auto reach = [](const std::vector<int>* rows, double radius, double dy) {
    const auto row = static_cast<std::size_t>(std::abs(dy));
    if (rows == nullptr) return halfWidth(radius, dy);
    return row < rows->size() ? (*rows)[row] : -1;
  };
  const int first = ceilWithin(centre.y - outerRadius, clip_.y1, clip_.y2);
  const int last = ceilWithin(centre.y + std::floor(outerRadius) + 1, clip_.y1, clip_.y2);
  for (int y = first; y < last; ++y) {
    const double dy = static_cast<double>(y) - centre.y;
    const int outer = reach(outerRows, outerRadius, dy), inner = reach(innerRows, innerRadius, dy);
    if (inner < 0) {
      paint(y, centre.x - outer, centre.x + outer + 1, brush);
    } else {
      paint(y, centre.x - outer, centre.x - inner, brush);
      paint(y, centre.x + inner + 1, centre.x + outer + 1, brush);
    }
  }
}

std::vector<RowSpan> Raster::areaAround(PixelPoint start, std::uint32_t limit) const {
  std::vector<RowSpan> area;
  if (pixels_.empty()) makePixels();
  if (start.x < clip_.x1 || start.x >= clip_.x2 || start.y < clip_.y1 || start.y >= clip_.y2) return area;
  std::vector<bool> taken(pixels_.size());
  const auto open = [&](int x, int y) { return pixels_[index(x, y)] != limit && !taken[index(x, y)]; };
  std::vector<PixelPoint> waiting{start};
  while (!waiting.empty()) {
    const PixelPoint seed = waiting.back();
    waiting.pop_back();
    if (!open(seed.x, seed.y)) continue;
    RowSpan run{seed.y, seed.x, seed.x + 1};
    while (run.x1 > clip_.x1 && open(run.x1 - 1, run.y)) --run.x1;
    while (run.x2 < clip_.x2 && open(run.x2, run.y)) ++run.x2;
    for (int x = run.x1; x < run.x2; ++x) taken[index(x, run.y)] = true;
    area.push_back(run);
    for (const int y : {run.y - 1, run.y + 1}) {
      if (y < clip_.y1 || y >= clip_.y2) continue;
      // the first pixel of each open stretch stands for all of it
      for (int x = run.x1; x < run.x2; ++x) {
        if (open(x, y) && (x == run.x1 || !open(x - 1, y))) waiting.push_back({x, y});
      }
    }
  }
  return area;
}

void Raster::paint(std::span<const RowSpan> area, const Brush& brush) {
  for (const RowSpan& run : area) paint(run.y, run.x1, run.x2, brush);
}

Picture Raster::stencil(std::span<const RowSpan> area, const Brush& brush, PixelPoint& corner) const {
  Picture result;
  if (area.empty() || brush.style == kFillTransparent) return result;
  PixelRect box = kNothing;
  for (const RowSpan& run : area) {
    box = {std::min(box.x1, run.x1), std::min(box.y1, run.y), std::max(box.x2, run.x2),
           std::max(box.y2, run.y + 1)};
  }
  corner = {box.x1, box.y1};
  result.width = box.x2 - box.x1;
  result.height = box.y2 - box.y1;
  const auto width = static_cast<std::size_t>(result.width);
  result.pixels.assign(width * static_cast<std::size_t>(result.height), 0);
  for (const RowSpan& run : area) {
    std::uint32_t* row = &result.pixels[static_cast<std::size_t>(run.y - box.y1) * width];
    for (int x = run.x1; x < run.x2; ++x) {
      if (isPainted(brush, x, run.y)) row[x - box.x1] = brush.color;
    }
  }
  return result;
}

void Raster::mask(PixelPoint corner, const GlyphMask& mask, std::uint32_t color) {
  const std::uint8_t* row = mask.pixels.data();
  for (int y = corner.y + mask.top, bottom = y + mask.height; y < bottom; ++y, row += mask.width) {
    const int left = corner.x + mask.left;
    for (int x = 0; x < mask.width; ++x) {
      const int start = x;
      while (x < mask.width && row[x] != 0) ++x;
      if (x > start) span(y, left + start, left + x, color);
    }
  }
}

}  // namespace vk
