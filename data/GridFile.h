#pragma once

#include <string>
#include <string_view>

#include "base/Array.h"
#include "base/Array2.h"

/// Grid files: a function of two variables on a grid. Three titles, a line with nx and ny, a line with the nx values of
/// x, one with the ny values of y, and ny lines with nx values of z each; comments and line ends as in data files.
namespace vk {

struct Grid {
  std::string titleX, titleY, titleZ;
  Array<double> x, y;  ///< 1..nx and 1..ny, ascending in equal steps
  Array2<double> z;    ///< z(i, j) at x[i], y[j]

  int nx() const { return x.upper(); }
  int ny() const { return y.upper(); }
};

/// What was made of a grid file.
struct GridReading {
  std::string errors;  ///< all errors in line order, CR LF ended lines; empty for a good file
  Grid grid;           ///< of a good file
};

/// A side of a grid has at most so many points, and at least two.
inline constexpr int kMostGridPoints = 500;

/// Checks every line of a grid file and takes it when all are good.
GridReading parseGrid(std::string_view bytes);

}  // namespace vk
