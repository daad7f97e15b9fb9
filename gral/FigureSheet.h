#pragma once

#include <string>

#include "gral/DeviceTypes.h"

namespace vk {

/// What a figure is called and what it shows, in UTF-8: for those who search for it, or cannot see it.
struct FigureWords {
  std::string title, description;
};

/// The sheet that a drawing becomes a file on.
struct FigureSheet {
  SheetSize size = {};  ///< the drawing stands in its middle; without one, that of the drawing
  int dpi = 192;        ///< pixels of an image to the inch
  bool transparent = false;
  FigureWords words = {};

  /// The size for a drawing of this one.
  const SheetSize& sizeFor(const SheetSize& drawing) const { return size.width > 0 ? size : drawing; }
  /// Where the drawing's corner stands.
  TwipPoint cornerOf(const SheetSize& drawing) const {
    const SheetSize sheet = sizeFor(drawing);
    return {(sheet.width - drawing.width) / 2, (sheet.height - drawing.height) / 2};
  }
};

}  // namespace vk
