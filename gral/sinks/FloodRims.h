#pragma once

#include <map>
#include <vector>

#include "gral/sinks/FloodPictures.h"

namespace vk {

/// Pixels on both sides of the edge of a filled area, and what the area is filled with.
struct FloodRim {
  Brush brush;
  std::vector<RowSpan> pixels;
};

/// What is to be painted under the lines around filled areas. Viewers smooth the lines as well as the areas
/// between them: where both are thin, the rim is seen, and not the ground.
///
/// The key is the number of primitives that are drawn before a rim: up to the last area that covers its pixels
/// in another colour than that of the lines.
using FloodRims = std::map<long, std::vector<FloodRim>>;

/// The rims of a list, found on images with so many pixels to a nominal one. See `replayAsVectors`.
FloodRims floodRims(const DisplayList& list, GlyphSource& glyphs, const DrawingUnits& units,
                    const SheetSize& sheet, int finePixels);

}  // namespace vk
