#pragma once

#include <array>
#include <cstdint>
#include <span>
#include <vector>

#include "gral/DeviceTypes.h"
#include "gral/sinks/Hatch.h"

namespace vk {

/// The shape of a letter in pixels: 1 where it is black.
struct GlyphMask {
  int left = 0, top = 0;  ///< of the mask, from the top left corner of the letter's cell
  int width = 0, height = 0;
  std::vector<std::uint8_t> pixels;  ///< row by row
};

/// The tip of a pen: a round spot of whole pixels.
class Nib {
 public:
  /// Tips wider than this have no rows: their lines are found row by row of the picture, so that they cost no
  /// more than what is seen of them.
  static constexpr int kWidestWithRows = 64;

  explicit Nib(int width = 1);

  /// The pixels x1..x2 of a row, from the pixel at the tip's centre.
  struct Row {
    int y, x1, x2;
  };
  int width() const { return width_; }
  bool hasRows() const { return width_ <= kWidestWithRows; }
  const std::vector<Row>& rows() const { return rows_; }
  /// The row y; the one at 0 is the widest.
  const Row& row(int y) const { return rows_[static_cast<std::size_t>(y - rows_.front().y)]; }

 private:
  int width_;
  std::vector<Row> rows_;
};

/// What the inside of a figure is painted with. Hatches repeat every `cell` pixels.
struct Brush {
  std::uint32_t color = 0;
  int style = kFillSolid;
  int cell = kHatchCell;
};

/// The pixels x1 <= x < x2 of a row.
struct RowSpan {
  int y, x1, x2;
  bool operator==(const RowSpan&) const = default;
};

/// A picture of 32-bit pixels and the primitives on it, without smoothing: a pixel belongs to a figure or it
/// does not, so that areas which touch neither overlap nor leave gaps. Coordinates are pixels, of any size;
/// a point stands for the centre of its pixel. What lies outside the clip region is left as it is.
class Raster {
 public:
  static constexpr std::uint32_t pixelOf(Colour color) { return 0xFF000000U | color.rgb(); }

  /// A new picture, all of one colour and without limits.
  void reset(int width, int height, std::uint32_t color);
  int width() const { return width_; }
  int height() const { return height_; }
  /// The pixel (x, y) from 0, 0xFFRRGGBB, which must be one of the picture; and all of them, row by row.
  std::uint32_t at(int x, int y) const { return pixels()[index(x, y)]; }
  const std::vector<std::uint32_t>& pixels() const {
    if (pixels_.empty()) makePixels();
    return pixels_;
  }

  /// Limits all drawing; none for the whole picture.
  void clip(const PixelRect* region);
  /// The pixels that can be drawn on.
  const PixelRect& seen() const { return clip_; }

  /// The pixels x1 <= x < x2 of a row.
  void span(int y, int x1, int x2, std::uint32_t color);
  /// The pixels of a rectangle, its right and lower side not included.
  void block(const PixelRect& rectangle, std::uint32_t color);
  /// A line with both ends.
  void line(PixelPoint a, PixelPoint b, const Nib& nib, std::uint32_t color);
  /// The inside of a polygon by the even-odd rule: the pixels whose centres lie inside, on a left or upper
  /// edge, but not those on a right or lower edge.
  void polygon(std::span<const PixelPoint> points, const Brush& brush);
  /// The pixels with innerRadius < distance <= outerRadius from a pixel.
  void ring(PixelPoint centre, double innerRadius, double outerRadius, const Brush& brush);
  /// The area around a pixel up to the pixels of a colour, within the clip region; pixels touch along their
  /// sides. Empty when the pixel has that colour or lies outside.
  std::vector<RowSpan> areaAround(PixelPoint start, std::uint32_t limit) const;
  /// Such an area with a brush.
  void paint(std::span<const RowSpan> area, const Brush& brush);
  /// What `paint` would paint, with its top left corner; its other pixels are 0.
  Picture stencil(std::span<const RowSpan> area, const Brush& brush, PixelPoint& corner) const;

  /// A letter, whose cell has its top left corner there.
  void mask(PixelPoint corner, const GlyphMask& mask, std::uint32_t color);
  /// A single pixel.
  void set(int x, int y, std::uint32_t color);

  /// The part that has changed since this was last asked; empty when nothing has.
  PixelRect takeChanged();

  /// The picture with each square of factor x factor pixels, factor at most 22, as one pixel of their mean colour.
  Picture reduced(int factor) const;
  /// The same of a part, its corners rounded outward to whole squares.
  Picture reduced(int factor, const PixelRect& part) const;

 private:
  std::size_t index(int x, int y) const {
    return static_cast<std::size_t>(y) * static_cast<std::size_t>(width_) + static_cast<std::size_t>(x);
  }
  void makePixels() const;
  void touch(const PixelRect& part) {
    if (part.x1 < touched_.x1 || part.y1 < touched_.y1 || part.x2 > touched_.x2 || part.y2 > touched_.y2)
      widenTouched(part);
  }
  void widenTouched(const PixelRect& part);
  void paint(int y, int x1, int x2, const Brush& brush);
  void straightLine(PixelPoint low, PixelPoint high, const Nib& nib, std::uint32_t color);
  void slantedLine(PixelPoint a, PixelPoint b, const Nib& nib, std::uint32_t color);
  /// All of a nib lies where can be drawn.
  bool seesWhole(PixelPoint place, const Nib& nib) const;
  void touchLine(PixelPoint a, PixelPoint b, const Nib& nib);
  void wideLine(PixelPoint a, PixelPoint b, int width, std::uint32_t color);
  const std::vector<int>* keptHalfWidths(double radius);

  /// A side of a polygon; it grows by `slope` to the right from row to row.
  struct Edge {
    PixelPoint upper;
    int lower;
    double slope;
  };
  struct KeptCircle {
    double radius = -1;
    std::vector<int> halfWidths;
  };

  int width_ = 0;
  int height_ = 0;
  std::uint32_t ground_ = 0;
  mutable std::vector<std::uint32_t> pixels_;  ///< none as long as all have the colour of the ground
  PixelRect clip_;
  PixelRect changed_;  ///< since this was last asked
  PixelRect drawn_;    ///< since the last reset: the other pixels have the colour of the ground
  PixelRect touched_;  ///< some part of both
  std::vector<Edge> edges_;
  std::vector<double> crossings_;
  std::array<KeptCircle, 2> circles_;  ///< those of one ring
  std::size_t lastCircle_ = 0;
};

}  // namespace vk
