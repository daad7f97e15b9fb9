#pragma once

#include <algorithm>
#include <string>

#include "gral/DeviceTypes.h"

namespace vk {

/// What a figure is called and what it shows, in UTF-8: for those who search for it, or cannot see it.
struct FigureWords {
  std::string title, description;
};

/// How a drawing stands on its sheet, in twips.
struct DrawingPlace {
  SheetSize sheet;
  double scale = 1;
  TwipPoint corner = {};
};

/// The sheet that a drawing becomes a file on.
struct FigureSheet {
  SheetSize size =
      {};  ///< the drawing fills it as far as its sides allow, in its middle; without one, that of the drawing
  int dpi = 192;  ///< pixels of an image to the inch
  bool transparent = false;
  FigureWords words = {};

  /// It has a size of its own.
  bool sized() const { return size.width > 0; }
  /// Where a drawing of this size stands on it.
  DrawingPlace placeFor(const SheetSize& drawing) const {
    if (!sized()) return {drawing};
    const double scale = std::min(size.width / drawing.width, size.height / drawing.height);
    return {
        size, scale, {(size.width - scale * drawing.width) / 2, (size.height - scale * drawing.height) / 2}};
  }
};

}  // namespace vk
