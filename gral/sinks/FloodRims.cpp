#include "gral/sinks/FloodRims.h"

#include <algorithm>
#include <set>

#include "gral/ObserverDevice.h"
#include "gral/sinks/TeeSink.h"

namespace vk {
namespace {

/// Knows the limits of all fillings of a list.
class LimitFinder : public CountingSink {
 public:
  std::set<Colour> limits;
  void floodFill(const PixelPoint&, Colour limit) override { limits.insert(limit); }
};

/// When each pixel was last covered by an area of another colour than one, as the number of that primitive.
class AreaTimes : public RasterSink {
 public:
  AreaTimes(int ratio, GlyphSource& glyphs, const DrawingUnits& units, Colour except)
      : RasterSink(ratio, glyphs, units.pixelRatio, units.penUnit), except_(except) {
    RasterSink::pen({kBlack, 1, kDrawTransparent});
  }

  /// Nothing of another colour was there, not even the ground.
  static constexpr long kNever = 0xFFFFFF;

  long now = 0;  ///< the number of the primitive that is drawn

  long at(int x, int y) const { return static_cast<long>(Colour::fromRgb(raster().at(x, y)).rgb()); }
  void cover(std::span<const RowSpan> area) {
    if (counts()) raster().paint(area, {Raster::pixelOf(stamp()), kFillSolid, kHatchCell});
  }

  void clear(const SheetSize& size, Colour background) override {
    RasterSink::clear(size, background == except_ ? stampOf(kNever) : stamp());
  }
  void pen(const Pen&) override {}
  void filling(const Filling& filling) override { filling_ = filling; }
  void line(const TwipPoint&, const TwipPoint&) override {}
  void box(const TwipPoint&, const TwipPoint&) override {}
  void filledBox(const TwipPoint& a, const TwipPoint& b, Colour color) override {
    if (color != except_) RasterSink::filledBox(a, b, stamp());
  }
  void circle(const TwipPoint& centre, Twips radius) override {
    if (takeFilling()) RasterSink::circle(centre, radius);
  }
  void polyline(std::span<const PixelPoint>) override {}
  void bezier(std::span<const PixelPoint>) override {}
  void figure(std::span<const PixelPoint> points, bool fill, bool) override {
    if (fill && takeFilling()) RasterSink::figure(points, true, false);
  }
  void text(const TextRun&) override {}
  void picture(const Picture& picture, const TwipPoint& corner) override {
    const TwipPoint size{picture.width * picture.twipsPerPixel, picture.height * picture.twipsPerPixel};
    RasterSink::filledBox(corner, corner + size, stamp());
  }

 private:
  static Colour stampOf(long time) { return Colour::fromRgb(static_cast<std::uint32_t>(time)); }
  Colour stamp() const { return stampOf(std::min(now, kNever)); }
  bool counts() const { return filling_.style == kFillSolid && filling_.color != except_; }
  bool takeFilling() {
    RasterSink::filling({stamp(), kFillSolid});
    return counts();
  }

  Colour except_;
  Filling filling_;
};

/// The open pixels around others, up to so many steps away.
template <class Open>
std::vector<RowSpan> pixelsAround(std::span<const RowSpan> pixels, int steps, std::vector<bool>& taken,
                                  int width, Open open) {
  std::vector<RowSpan> result, rim(pixels.begin(), pixels.end()), next;
  const auto take = [&](int x, int y) {
    if (!open(x, y)) return;
    std::vector<bool>::reference mark =
        taken[static_cast<std::size_t>(y) * static_cast<std::size_t>(width) + static_cast<std::size_t>(x)];
    if (mark) return;
    mark = true;
    next.push_back({y, x, x + 1});
  };
  for (int step = 0; step < steps; ++step) {
    next.clear();
    for (const RowSpan& run : rim) {
      take(run.x1 - 1, run.y);
      take(run.x2, run.y);
      for (int x = run.x1; x < run.x2; ++x) {
        take(x, run.y - 1);
        take(x, run.y + 1);
      }
    }
    result.insert(result.end(), next.begin(), next.end());
    std::swap(rim, next);
  }
  return result;
}

/// Draws a list on an image and finds the rims of the areas that are filled up to one colour.
class RimFinder : public TeeSink {
 public:
  RimFinder(RasterSink& image, AreaTimes& times, Colour limit, int steps, FloodRims& rims)
      : TeeSink(image, times), image_(image), times_(times), limit_(limit), steps_(steps), rims_(rims) {}

  void floodFill(const PixelPoint& start, Colour limit) override {
    comes();
    const std::vector<RowSpan> area = image_.floodArea(start, limit);
    if (limit == limit_) findRims(area);
    image_.floodFill(start, limit);
    times_.cover(area);
  }

 protected:
  void comes() override { ++times_.now; }

 private:
  bool seen(int x, int y) const {
    const PixelRect& part = image_.raster().seen();
    return x >= part.x1 && x < part.x2 && y >= part.y1 && y < part.y2;
  }

  void findRims(const std::vector<RowSpan>& area) {
    const Raster& raster = image_.raster();
    const int width = raster.width();
    std::vector<bool> none(raster.pixels().size()), outside(raster.pixels().size(), true);
    const auto at = [width](int x, int y) {
      return static_cast<std::size_t>(y) * static_cast<std::size_t>(width) + static_cast<std::size_t>(x);
    };
    for (const RowSpan& run : area) {
      for (int x = run.x1; x < run.x2; ++x) outside[at(x, run.y)] = false;
    }
    const std::uint32_t limit = Raster::pixelOf(limit_);
    const auto isLimit = [&](int x, int y) { return seen(x, y) && raster.at(x, y) == limit; };
    std::map<long, std::vector<RowSpan>> byTime;
    for (const RowSpan& pixel : pixelsAround(area, steps_, none, width, isLimit)) {
      const long time = times_.at(pixel.x1, pixel.y);
      if (time != AreaTimes::kNever) byTime[time].push_back(pixel);
    }
    const auto isSeen = [&](int x, int y) { return seen(x, y); };
    for (auto& [time, pixels] : byTime) {
      const std::vector<RowSpan> inner = pixelsAround(pixels, steps_, outside, width, isSeen);
      for (const RowSpan& pixel : inner) outside[at(pixel.x1, pixel.y)] = false;
      pixels.insert(pixels.end(), inner.begin(), inner.end());
      rims_[time].push_back({image_.brush(), std::move(pixels)});
    }
  }

  RasterSink& image_;
  AreaTimes& times_;
  Colour limit_;
  int steps_;
  FloodRims& rims_;
};

}  // namespace

FloodRims floodRims(const DisplayList& list, GlyphSource& glyphs, const DrawingUnits& units,
                    const SheetSize& sheet, int finePixels) {
  // Beyond the middle of the thinnest line, to its middle where it is slanted.
  const int steps = finePixels - 1;
  LimitFinder finder;
  list.replay(finder);
  FloodRims rims;
  for (const Colour limit : finder.limits) {
    RasterSink image(finePixels, glyphs, units.pixelRatio, units.penUnit);
    AreaTimes times(finePixels, glyphs, units, limit);
    image.clear(sheet, kWhite);
    times.clear(sheet, kWhite);
    RimFinder rimFinder(image, times, limit, steps, rims);
    list.replay(rimFinder);
  }
  return rims;
}

}  // namespace vk
