#pragma once

#include <array>
#include <span>

#include "gral/ContourTriangle.h"

/// Triangles of a surface with coloured levels.
namespace vk {

/// Hue, saturation and brightness of colours: hsb(c, 1..3) for colour c from 1. Under a shade, 0..255, the
/// brightness is shade/512, so that the brightest shade stays just under the full colour.
struct LevelColors {
  const Array2<float>& hsb;
  bool shaded;
  double shade;

  Colour operator()(int c) const;
};

/// A part of a triangle between two levels, as a polygon: the area of level index `index`.
struct LevelBand {
  int index = 0;
  std::array<PixelPlace, 5> corners;
  std::size_t count = 0;

  std::span<const PixelPlace> points() const { return std::span(corners).first(count); }
  void add(const PixelPlace& point) { corners[count++] = point; }
};

/// Calls `use` with the bands of a triangle from the bottom to the top.
template <class Use>
void forEachBand(const LevelTriangle<unit::Pixel>& triangle, const Array<float>& ValLev, Use use) {
  LevelBand band;
  band.index = triangle.bottom.k;
  band.add(triangle.bottom.place);
  for (int k = triangle.bottom.k + 1; k <= triangle.top.k; ++k) {
    const PixelPlace P = triangle.onLongEdge(ValLev[k]);
    const PixelPlace Q = triangle.onShortEdge(k, ValLev[k]);
    // Each band runs up the long edge and down the other side.
    band.add(P);
    band.add(Q);
    if (triangle.middle.k == band.index) band.add(triangle.middle.place);
    use(band);
    band = LevelBand();
    band.index = k;
    band.add(Q);
    band.add(P);
  }
  band.add(triangle.top.place);
  if (triangle.middle.k == band.index) band.add(triangle.middle.place);
  use(band);
}

/// Fills the bands of a triangle whose corners are in pixels: the band of level index i has colour i + 1. The
/// device keeps a solid filling.
void BandFillTriangle(Device& device, const PixelCorner& c1, const PixelCorner& c2, const PixelCorner& c3,
                      const Array<float>& ValLev, const LevelColors& colors);

/// Draws the level segments of a triangle whose corners are in Usr, level k in colour k.
void BandLinesTriangle(GralCls& drawing, const UsrCorner& c1, const UsrCorner& c2, const UsrCorner& c3,
                       const Array<float>& ValLev, const LevelColors& colors);

}  // namespace vk
