#include "gral/FloodPictures.h"

#include "gral/TeeSink.h"

namespace vk {
namespace {

/// Pixels of the image beside to a nominal one: 384 to the inch.
constexpr int kFinePixels = 4;

/// Draws on a sink of vectors and on an image, which tells what a filling paints.
class FloodPictures : public TeeSink {
 public:
  FloodPictures(DrawingSink& sink, RasterSink& image) : TeeSink(sink, image), sink_(sink), image_(image) {}

  void floodFill(const PixelPoint& start, Color limit) override {
    double x = 0, y = 0;
    const Picture painted = image_.floodPicture(start, limit, x, y);
    if (painted.pixels.empty()) return;
    image_.floodFill(start, limit);
    sink_.picture(painted, x, y);
  }

 private:
  DrawingSink& sink_;
  RasterSink& image_;
};

}  // namespace

void replayAsVectors(const DisplayList& list, DrawingSink& sink, GlyphSource& glyphs,
                     const DrawingUnits& units, const SheetSize& sheet) {
  if (!list.needsPixels()) return list.replay(sink);
  RasterSink image(kFinePixels, glyphs, units.pixelRatio, units.penUnit);
  image.clear(sheet.width, sheet.height, kWhite);
  FloodPictures both(sink, image);
  list.replay(both);
}

}  // namespace vk
