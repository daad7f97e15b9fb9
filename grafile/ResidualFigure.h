#pragma once

#include <span>
#include <string>
#include <vector>

#include "gral/ReportWindow.h"

namespace vk {

/// The residuals of a fit in units of their errors ("pulls"): against x, and as a histogram beside it with the curve of
/// the normal distribution.
struct ResidualFigure {
  /// Takes the points whose residual is finite; both spans have one length.
  ResidualFigure(std::string titleOfX, std::span<const double> places, std::span<const double> residuals);

  std::string titleX;
  std::vector<double> x, pulls;  ///< of the points that can be drawn
  int missing;                   ///< how many cannot
};

/// The figure in words: how many points there are, how many are beyond two errors, and the largest with its x.
std::string describe(const ResidualFigure& figure);

/// Draws the figure; without a point it says so.
void drawResiduals(const ResidualFigure& figure, GralCls& drawing, const PageArea& area);

}  // namespace vk
