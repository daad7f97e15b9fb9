#include "gral/sinks/RasterSink.h"

#include <algorithm>
#include <cmath>
#include <numbers>

#include "base/Rounding.h"
#include "base/Text.h"

namespace vk {
namespace {

constexpr double kFarthestPixel = 1E9;

int wholePixel(double value) {
  return static_cast<int>(roundHalfEven(std::clamp(value, -kFarthestPixel, kFarthestPixel)));
}

}  // namespace

RasterSink::RasterSink(int ratio, GlyphSource& glyphs, double sourceRatio, double penUnit)
    : ratio_(ratio),
      sourceRatio_(sourceRatio == 0 ? ratio : sourceRatio),
      penUnit_(penUnit),
      glyphs_(glyphs),
      nib_(ratio) {
  brush_.style = kFillTransparent;
  brush_.cell = kHatchCell * ratio;
}

PixelPoint RasterSink::pixelAt(const TwipPoint& point) const {
  const double perTwip = ratio_ / kNominalTwipsPerPixel;
  return {wholePixel(point.x * perTwip), wholePixel(point.y * perTwip)};
}

PixelPoint RasterSink::ownPixel(const PixelPoint& source) const {
  if (sourceRatio_ == ratio_) return source;
  const double factor = ratio_ / sourceRatio_;
  return {wholePixel(source.x * factor), wholePixel(source.y * factor)};
}

std::span<const PixelPoint> RasterSink::ownPixels(std::span<const PixelPoint> points, bool closed) {
  own_.clear();
  for (const PixelPoint& point : points) own_.push_back(ownPixel(point));
  if (closed) own_.push_back(own_.front());
  return own_;
}

void RasterSink::clear(const SheetSize& size, Colour background) {
  const PixelPoint pixels = pixelAt({size.width, size.height});
  raster_.reset(pixels.x, pixels.y, Raster::pixelOf(background));
}

void RasterSink::pen(const Pen& pen) {
  const int width = std::max(1, wholePixel(pen.width * penUnit_ * ratio_));
  if (width != nib_.width()) nib_ = Nib(width);
  penColor_ = Raster::pixelOf(pen.color);
  penStyle_ = pen.style;
}

void RasterSink::filling(const Filling& filling) {
  brush_.color = Raster::pixelOf(filling.color);
  brush_.style = filling.style;
}

void RasterSink::line(const TwipPoint& a, const TwipPoint& b) {
  const PixelPoint ends[] = {pixelAt(a), pixelAt(b)};
  stroke(ends);
}

void RasterSink::box(const TwipPoint& a, const TwipPoint& b) {
  const PixelPoint p = pixelAt(a), q = pixelAt(b);
  const PixelPoint corners[] = {p, {q.x, p.y}, q, {p.x, q.y}, p};
  stroke(corners);
}

void RasterSink::filledBox(const TwipPoint& a, const TwipPoint& b, Colour color) {
  const PixelPoint low = pixelAt({std::min(a.x, b.x), std::min(a.y, b.y)});
  const PixelPoint high = pixelAt({std::max(a.x, b.x), std::max(a.y, b.y)});
  raster_.block({low.x, low.y, high.x + 1, high.y + 1}, Raster::pixelOf(color));
}

void RasterSink::circle(const TwipPoint& centre, Twips radius) {
  const PixelPoint middle = pixelAt(centre);
  const double r = std::abs(radius.value()) * ratio_ / kNominalTwipsPerPixel;
  const bool outlined = penStyle_ != kDrawTransparent;
  const double half = outlined ? nib_.width() / 2.0 : 0;
  raster_.ring(middle, -1, r - half, brush_);
  if (outlined) raster_.ring(middle, r - half, r + half, {penColor_, kFillSolid, 0});
}

void RasterSink::polyline(std::span<const PixelPoint> points) {
  stroke(ownPixels(points));
}

void RasterSink::bezier(std::span<const PixelPoint> points) {
  constexpr double kPixelsPerStep = 3;
  std::vector<PixelPoint> line{ownPixel(points[0])};
  for (std::size_t k = 0; k + 3 < points.size(); k += 3) {
    const std::span<const PixelPoint> p = ownPixels(points.subspan(k, 4));
    double length = 0;
    for (std::size_t i = 0; i < 3; ++i) {
      length +=
          std::hypot(static_cast<double>(p[i + 1].x) - p[i].x, static_cast<double>(p[i + 1].y) - p[i].y);
    }
    const int steps = static_cast<int>(std::clamp(length / kPixelsPerStep, 1.0, 1000.0));
    for (int i = 1; i <= steps; ++i) {
      const double s = static_cast<double>(i) / steps, a = 1 - s;
      const double w[] = {a * a * a, 3 * a * a * s, 3 * a * s * s, s * s * s};
      line.push_back({wholePixel(w[0] * p[0].x + w[1] * p[1].x + w[2] * p[2].x + w[3] * p[3].x),
                      wholePixel(w[0] * p[0].y + w[1] * p[1].y + w[2] * p[2].y + w[3] * p[3].y)});
    }
  }
  stroke(line);
}

void RasterSink::figure(std::span<const PixelPoint> points, bool fill, bool strokeToo) {
  const std::span<const PixelPoint> outline = ownPixels(points, fill && strokeToo);
  if (fill) raster_.polygon(outline, brush_);
  if (strokeToo) stroke(outline);
}

void RasterSink::stroke(std::span<const PixelPoint> points) {
  if (penStyle_ == kDrawTransparent) return;
  const std::span<const int> pattern = dashesOf(penStyle_);
  if (!pattern.empty()) return strokeDashed(points, pattern);
  for (std::size_t i = 1; i < points.size(); ++i) raster_.line(points[i - 1], points[i], nib_, penColor_);
}

void RasterSink::strokeDashed(std::span<const PixelPoint> points, std::span<const int> pattern) {
  std::size_t element = 0;
  double left = pattern[0] * nib_.width();
  for (std::size_t i = 1; i < points.size(); ++i) {
    const double x = points[i - 1].x, y = points[i - 1].y;
    const double dx = points[i].x - x, dy = points[i].y - y;
    const double length = std::min(std::hypot(dx, dy), kFarthestPixel);
    for (double done = 0; done < length;) {
      const double next = std::min(length, done + left);
      const auto at = [&](double where) {
        return PixelPoint{wholePixel(x + dx * where / length), wholePixel(y + dy * where / length)};
      };
      if (element % 2 == 0) raster_.line(at(done), at(next), nib_, penColor_);
      left -= next - done;
      done = next;
      if (left > 0) continue;
      element = (element + 1) % pattern.size();
      left = pattern[element] * nib_.width();
    }
  }
}

void RasterSink::floodFill(const PixelPoint& start, Colour limit) {
  raster_.paint(floodArea(start, limit), brush_);
}

std::vector<RowSpan> RasterSink::floodArea(const PixelPoint& start, Colour limit) const {
  return raster_.areaAround(ownPixel(start), Raster::pixelOf(limit));
}

Picture RasterSink::pictureOf(std::span<const RowSpan> area, const Brush& brush, TwipPoint& corner) const {
  PixelPoint first;
  Picture picture = raster_.stencil(area, brush, first);
  picture.twipsPerPixel = kNominalTwipsPerPixel / ratio_;
  // A point stands for the centre of its pixel.
  corner = {(first.x - 0.5) * picture.twipsPerPixel, (first.y - 0.5) * picture.twipsPerPixel};
  return picture;
}

void RasterSink::text(const TextRun& run) {
  const bool symbol = isSymbolFont(run.fontName);
  const double twips = toTwips(run.size).value();
  const double pixels = twips * ratio_ / kNominalTwipsPerPixel;
  const double radians = run.angle * std::numbers::pi / 180;
  TwipPoint place = run.place;
  for (const char c : run.text) {
    const auto code = static_cast<unsigned char>(c);
    const PixelPoint corner = pixelAt(place);
    const PixelRect& whole = raster_.seen();
    const PixelRect seen{whole.x1 - corner.x, whole.y1 - corner.y, whole.x2 - corner.x, whole.y2 - corner.y};
    raster_.mask(corner, glyphs_.glyph(symbol, code, pixels, run.angle, seen), penColor_);
    const double advance = glyphs_.advance(symbol, code) * twips;
    place.x += advance * std::cos(radians);
    place.y -= advance * std::sin(radians);
  }
}

void RasterSink::clip(const PixelRect* region) {
  if (region == nullptr) return raster_.clip(nullptr);
  const PixelPoint a = ownPixel({region->x1, region->y1}), b = ownPixel({region->x2, region->y2});
  const PixelRect own{a.x, a.y, b.x, b.y};
  raster_.clip(&own);
}

void RasterSink::picture(const Picture& picture, const TwipPoint& corner) {
  const PixelPoint first = pixelAt(corner);
  const double step = kNominalTwipsPerPixel / ratio_ / picture.twipsPerPixel;
  const int width = static_cast<int>(picture.width / step), height = static_cast<int>(picture.height / step);
  for (int row = 0; row < height; ++row) {
    for (int column = 0; column < width; ++column) {
      const auto from = static_cast<std::size_t>(row * step) * static_cast<std::size_t>(picture.width) +
                        static_cast<std::size_t>(column * step);
      if (picture.pixels[from] != 0) raster_.set(first.x + column, first.y + row, picture.pixels[from]);
    }
  }
}

}  // namespace vk
