#pragma once

#include <vector>

#include "base/Colour.h"
#include "platform/CharGrid.h"
#include "ui/layout/Geometry.h"
#include "ui/layout/TextMeasure.h"

namespace vk {

/// Height and width of a character cell, in twips.
struct CellSize {
  int width = 0;   ///< `InpCellW`
  int height = 0;  ///< `InpCellH`
  bool operator==(const CellSize&) const = default;
};

/// The cell of a fixed-width font, measured on the letter "A".
inline CellSize cellOf(const TextMeasure& font) {
  return {static_cast<int>(font.width("A").value()), static_cast<int>(font.height().value())};
}

/// A line one pixel thick from one end to the other, both included; twips.
struct ColouredLine {
  double x1, y1, x2, y2;
  Colour colour;
  bool operator==(const ColouredLine&) const = default;
};

/// The eight lines of a frame through the centres of its corner cells: a rectangle in a dark and a light tone,
/// and a second one a pixel further inside. Style 2 repeats the tones, style 3 turns them, so that the frame
/// looks engraved. The light tone is white, on white paper grey.
std::vector<ColouredLine> frameLines(const GridFrame& frame, CellSize cell, Colour background);

}  // namespace vk
