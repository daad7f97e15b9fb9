#pragma once

#include "gral/sinks/DisplayList.h"
#include "gral/sinks/RasterSink.h"

namespace vk {

/// The units that a drawing was made in.
struct DrawingUnits {
  double pixelRatio;  ///< its pixels to a nominal one
  double penUnit;     ///< nominal pixels of a pen of width 1
};

/// Draws a list on a sink of vectors. An area that is filled up to a colour has no outline of its own: it is
/// found on an image beside, and goes to the sink as a picture of what the filling paints, and its rim a
/// second time, under the lines around it. `sheet` is the blank sheet that the list begins on; none for a list
/// that begins with one of its own.
void replayAsVectors(const DisplayList& list, DrawingSink& sink, GlyphSource& glyphs,
                     const DrawingUnits& units, const SheetSize& sheet = {});

}  // namespace vk
