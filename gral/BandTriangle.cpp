#include "gral/BandTriangle.h"

#include "gral/PixelPath.h"
#include "gral/Shade.h"

namespace vk {
namespace {

void fillBand(Device& device, const LevelBand& band) {
  std::array<PixelPlace, std::tuple_size_v<decltype(band.corners)> + 1> points;
  std::size_t count = 0;
  for (const PixelPlace& point : band.points()) points[count++] = point;
  points[count++] = points[0];
  makePath(device, std::span(points).first(count));
  device.FillPath();
}

}  // namespace

Colour LevelColors::operator()(int c) const {
  return HsbToRgb(hsb(c, 1), hsb(c, 2), shaded ? brightnessOf(shade) : static_cast<double>(hsb(c, 3)));
}

void BandFillTriangle(Device& device, const PixelCorner& c1, const PixelCorner& c2, const PixelCorner& c3,
                      const Array<float>& ValLev, const LevelColors& colors) {
  device.setFillStyle(kFillSolid);
  forEachBand(LevelTriangle<unit::Pixel>::of(c1, c2, c3), ValLev, [&](const LevelBand& band) {
    device.setFillColor(colors(band.index + 1));
    fillBand(device, band);
  });
}

void BandLinesTriangle(GralCls& drawing, const UsrCorner& c1, const UsrCorner& c2, const UsrCorner& c3,
                       const Array<float>& ValLev, const LevelColors& colors) {
  drawLevelSegments(drawing, LevelTriangle<unit::Usr>::of(c1, c2, c3), ValLev, colors);
}

}  // namespace vk
