#pragma once

#include <vector>

#include "data/GridFile.h"
#include "grafile/PlotBox.h"

/// Levels of a function on a grid: which, in what colours, and their lines.
namespace vk {

/// What level lines and the bands between levels are coloured with.
enum LevelColouring : int { kPresentColour = 0, kGreys = 1, kColours = 2 };

/// The smallest of 1, 2 and 5 times a power of ten that is not below a positive value.
double roundStepAbove(double value);

/// The smallest and the largest z of a grid.
struct HeightRange {
  double low, high;
};
HeightRange heightRange(const Grid& grid);

/// Multiples of a round step between two values, about `most` and no more than one above it.
std::vector<double> roundLevels(const HeightRange& range, int most);

/// The colour of the k-th of n levels, from 1: darker means lower, also on a printer without colours.
Colour levelColour(int k, int n, int colouring, Colour present);

/// Draws the level lines of a grid with the present pen, x and y of the grid being user coordinates. A key tells the
/// levels to the right of the box, the highest one first. False when no level lies between the values of z.
bool drawContours(GralCls& drawing, const PlotBox& box, const Grid& grid, const std::vector<double>& levels,
                  int colouring, bool withKey);

}  // namespace vk
