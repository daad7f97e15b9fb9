#pragma once

#include <string>
#include <vector>

#include "base/Int16.h"
#include "grafile/PlotBox.h"
#include "grafile/PlotSheet.h"

namespace vk {

/// A range of an axis that ends at round numbers.
struct RoundRange {
  RoundRange() = default;
  /// An empty range is opened.
  RoundRange(double from, double to);
  double low = 0, high = 1;
  Int16 divisions = 1;
};

/// Where everything of a sheet stands.
struct SheetLayout {
  RoundRange x, y, residuals;
  PlotBox box, lower;            ///< the lower one holds the residuals
  std::vector<std::string> key;  ///< as many entries as `keyOf` tells, shortened to the room that there is
  double keyX = 0, keyY = 0;     ///< user coordinates of the first one
  double keyStep = 0;            ///< from an entry to the next, in user coordinates, downward
};

/// The names of the key: points, curves, bands; those without a name have no entry. A single one needs no key: empty.
std::vector<std::string> keyOf(const PlotSheet& sheet);

/// The limits hold all points with their bars, the curves and the bands. The boxes fill the page of the open drawing.
/// The key stands in the corner where it hides nothing; where there is none, the upper limit is raised for it.
SheetLayout layOut(const PlotSheet& sheet, GralCls& drawing);

}  // namespace vk
