#include "gral/sinks/Hatch.h"

#include <algorithm>
#include <cmath>

#include "gral/DeviceTypes.h"

namespace vk {
namespace {

using enum HatchDirection;

constexpr HatchDirection kCross[] = {kHorizontal, kVertical};
constexpr HatchDirection kDiagonalCross[] = {kUpward, kDownward};

/// What is the same all along a line: its first edge is where this is a multiple of the cell.
template <class Number>
Number across(HatchDirection direction, Number x, Number y) {
  switch (direction) {
    case kHorizontal:
      return y;
    case kVertical:
      return x;
    case kUpward:
      return x + y;
    default:
      return x - y;
  }
}

/// The line at a value of `across`, from one side of a box to the other.
HatchLine lineAt(HatchDirection direction, double place, const TwipPoint& low, const TwipPoint& high) {
  constexpr double kMiddle = kNominalTwipsPerPixel / 2;
  switch (direction) {
    case kHorizontal:
      return {{low.x, place + kMiddle}, {high.x, place + kMiddle}};
    case kVertical:
      return {{place + kMiddle, low.y}, {place + kMiddle, high.y}};
    case kUpward:
      return {{place - high.y, high.y}, {place - low.y, low.y}};
    default:
      return {{place + low.y, low.y}, {place + high.y, high.y}};
  }
}

}  // namespace

std::span<const HatchDirection> hatchDirections(int style) {
  const std::span<const HatchDirection> cross(kCross), diagonals(kDiagonalCross);
  switch (style) {
    case kFillHorizontal:
      return cross.first(1);
    case kFillVertical:
      return cross.last(1);
    case kFillUpward:
      return diagonals.first(1);
    case kFillDownward:
      return diagonals.last(1);
    case kFillCross:
      return cross;
    case kFillDiagonalCross:
      return diagonals;
    default:
      return {};
  }
}

bool onHatch(int style, int x, int y, int cell) {
  const int width = std::max(1, cell / kHatchCell);
  return std::ranges::any_of(hatchDirections(style), [&](HatchDirection direction) {
    return (across(direction, x % cell, y % cell) + cell) % cell < width;
  });
}

std::vector<HatchLine> hatchLines(int style, const TwipPoint& low, const TwipPoint& high) {
  constexpr double kStep = kHatchCell * kNominalTwipsPerPixel;
  std::vector<HatchLine> lines;
  for (const HatchDirection direction : hatchDirections(style)) {
    const bool down = direction == kDownward;
    const double first = across(direction, low.x, down ? high.y : low.y);
    const double last = across(direction, high.x, down ? low.y : high.y);
    for (double place = std::floor(first / kStep) * kStep; place <= last; place += kStep) {
      lines.push_back(lineAt(direction, place, low, high));
    }
  }
  return lines;
}

}  // namespace vk
