#pragma once

#include <string>

#include "data/GridFile.h"
#include "grafile/SpaceFigure.h"

namespace vk {

enum class GridFigureKind { kContours, kSurface, kColumns };

/// The figure of a grid that nobody has drawn by hand.
struct GridFigure {
  GridFigureKind kind = GridFigureKind::kContours;
  double theta = kGoodTheta, phi = kGoodPhi;  ///< of figures in space
  int levels = 10;                            ///< about so many, 1 to 50
};

/// The graphic file that draws a grid, lines with CR LF ends. The name is that of the grid file as it will be opened.
std::string gridFigureText(const Grid& grid, const std::string& fileName, const GridFigure& figure);

}  // namespace vk
