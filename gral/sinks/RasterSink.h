#pragma once

#include <array>

#include "gral/DrawingSink.h"
#include "gral/sinks/Raster.h"

namespace vk {

/// Where the shapes of letters come from, with their widths.
class GlyphSource : public LetterMetrics {
 public:
  /// A letter at a size in pixels, turned counter-clockwise by degrees about the corner of its cell; of a large
  /// letter at least what lies within `seen`, told from that corner too. The mask is good until the next call.
  virtual const GlyphMask& glyph(bool symbol, unsigned char code, double pixels, double angle,
                                 const PixelRect& seen) = 0;
};

/// Draws on a raster whose nominal pixels consist of `ratio` x `ratio` pixels.
class RasterSink : public DrawingSink {
 public:
  /// Polylines and the like come in pixels of which `sourceRatio` make a nominal one, the raster's own
  /// unless told, and widths of pens in units of `penUnit` nominal pixels.
  RasterSink(int ratio, GlyphSource& glyphs, double sourceRatio = 0, double penUnit = 1);

  Raster& raster() { return raster_; }
  const Raster& raster() const { return raster_; }
  /// The pixels that `floodFill` would paint; none where it would paint nothing.
  std::vector<RowSpan> floodArea(const PixelPoint& start, Colour limit) const;
  /// These pixels, painted with a brush, as a picture, and its top left corner.
  Picture pictureOf(std::span<const RowSpan> area, const Brush& brush, TwipPoint& corner) const;
  /// What the present filling paints with.
  const Brush& brush() const { return brush_; }

  void clear(const SheetSize& size, Colour background) override;
  void pen(const Pen& pen) override;
  void filling(const Filling& filling) override;
  void line(const TwipPoint& a, const TwipPoint& b) override;
  void box(const TwipPoint& a, const TwipPoint& b) override;
  void filledBox(const TwipPoint& a, const TwipPoint& b, Colour color) override;
  void circle(const TwipPoint& centre, Twips radius) override;
  void polyline(std::span<const PixelPoint> points) override;
  void bezier(std::span<const PixelPoint> points) override;
  void figure(std::span<const PixelPoint> points, bool fill, bool stroke) override;
  void floodFill(const PixelPoint& start, Colour limit) override;
  void text(const TextRun& run) override;
  void clip(const PixelRect* region) override;
  void picture(const Picture& picture, const TwipPoint& corner) override;
  void refresh() override {}

 private:
  PixelPoint pixelAt(const TwipPoint& point) const;
  PixelPoint ownPixel(const PixelPoint& source) const;
  /// Good until the next call; closed, the first point comes once more at the end.
  std::span<const PixelPoint> ownPixels(std::span<const PixelPoint> points, bool closed = false);
  void stroke(std::span<const PixelPoint> points);
  void strokeDashed(std::span<const PixelPoint> points, std::span<const int> pattern);

  int ratio_;
  double sourceRatio_;
  double penUnit_;
  GlyphSource& glyphs_;
  Raster raster_;
  std::vector<PixelPoint> own_;
  Nib nib_;
  int penStyle_ = kDrawSolid;
  std::uint32_t penColor_ = Raster::pixelOf(kBlack);
  Brush brush_;
};

}  // namespace vk
