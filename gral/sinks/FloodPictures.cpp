#include "gral/sinks/FloodPictures.h"

#include "gral/sinks/FloodRims.h"
#include "gral/sinks/TeeSink.h"

namespace vk {
namespace {

/// Pixels of the image beside to a nominal one: 384 to the inch.
constexpr int kFinePixels = 4;

/// Draws on a sink of vectors and on an image, which tells what a filling paints.
class FloodPictures : public TeeSink {
 public:
  FloodPictures(DrawingSink& sink, RasterSink& image, const FloodRims& rims)
      : TeeSink(sink, image), sink_(sink), image_(image), rims_(rims) {}

  void floodFill(const PixelPoint& start, Colour limit) override {
    comes();
    const std::vector<RowSpan> area = image_.floodArea(start, limit);
    image_.floodFill(start, limit);
    send({image_.brush(), area});
  }

 protected:
  void comes() override {
    const auto rims = rims_.find(drawn_++);
    if (rims == rims_.end()) return;
    for (const FloodRim& rim : rims->second) send(rim);
  }

 private:
  void send(const FloodRim& area) {
    TwipPoint corner;
    const Picture painted = image_.pictureOf(area.pixels, area.brush, corner);
    if (!painted.pixels.empty()) sink_.picture(painted, corner);
  }

  DrawingSink& sink_;
  RasterSink& image_;
  const FloodRims& rims_;
  long drawn_ = 0;
};

}  // namespace

void replayAsVectors(const DisplayList& list, DrawingSink& sink, GlyphSource& glyphs,
                     const DrawingUnits& units, const SheetSize& sheet) {
  if (!list.needsPixels()) return list.replay(sink);
  const FloodRims rims = floodRims(list, glyphs, units, sheet, kFinePixels);
  RasterSink image(kFinePixels, glyphs, units.pixelRatio, units.penUnit);
  image.clear(sheet, kWhite);
  FloodPictures both(sink, image, rims);
  list.replay(both);
}

}  // namespace vk
