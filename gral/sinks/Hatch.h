#pragma once

#include <span>
#include <vector>

#include "gral/PlanePoint.h"

namespace vk {

// A hatch consists of lines a nominal pixel wide. Their places depend on the page alone, so that the hatches of
// areas side by side meet.

/// The lines of a hatch repeat every so many nominal pixels.
inline constexpr int kHatchCell = 8;

/// How the lines of a hatch run: along x, along y, to the upper right, to the lower right.
enum class HatchDirection { kHorizontal, kVertical, kUpward, kDownward };

/// The directions of one of `FillStyles`; none for a style without lines.
std::span<const HatchDirection> hatchDirections(int style);

/// True where a pixel, which is not left of or above the page, lies on a line of the style. The lines repeat every
/// `cell` pixels.
bool onHatch(int style, int x, int y, int cell);

/// The middle of a line from one end to the other.
struct HatchLine {
  TwipPoint from, to;
};

/// The lines of the style through a box.
std::vector<HatchLine> hatchLines(int style, const TwipPoint& low, const TwipPoint& high);

}  // namespace vk
