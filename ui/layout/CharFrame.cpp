#include "ui/layout/CharFrame.h"

#include <algorithm>

#include "base/Length.h"

namespace vk {
namespace {

/// Colours of the four sides of a rectangle.
struct Sides {
  Colour bottom, right, top, left;
};

struct Corners {
  double x1, y1, x2, y2;
};

Corners corners(const GridFrame& frame, CellSize cell) {
  const auto [x1, x2] = std::minmax({(frame.col1 - 0.5) * cell.width, (frame.col2 - 0.5) * cell.width});
  const auto [y1, y2] = std::minmax({(frame.row1 - 0.5) * cell.height, (frame.row2 - 0.5) * cell.height});
  return {x1, y1, x2, y2};
}

void addRectangle(std::vector<ColouredLine>& lines, const Corners& c, const Sides& sides) {
  lines.push_back({c.x1, c.y2, c.x2, c.y2, sides.bottom});
  lines.push_back({c.x2, c.y1, c.x2, c.y2, sides.right});
  lines.push_back({c.x1, c.y1, c.x2, c.y1, sides.top});
  lines.push_back({c.x1, c.y1, c.x1, c.y2, sides.left});
}

}  // namespace

std::vector<ColouredLine> frameLines(const GridFrame& frame, CellSize cell, Colour background) {
  const Colour dark = kBlack;
  const Colour light = background == kWhite ? Colour::fromChannels(128, 128, 128) : kWhite;
  const Sides raised{dark, dark, light, light};
  const Sides engraved{dark, light, dark, dark};
  const Corners outer = corners(frame, cell);
  const Corners inner{outer.x1 + kNominalTwipsPerPixel, outer.y1 + kNominalTwipsPerPixel,
                      outer.x2 - kNominalTwipsPerPixel, outer.y2 - kNominalTwipsPerPixel};
  std::vector<ColouredLine> lines;
  addRectangle(lines, outer, raised);
  addRectangle(lines, inner, frame.style == 3 ? engraved : raised);
  return lines;
}

}  // namespace vk
