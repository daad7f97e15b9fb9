#pragma once

#include "base/Int16.h"

namespace vk {

/// Settings of the data simulation, kept from one simulation to the next.
struct SimulationSettings {
  double SimXMin = 0, SimXMax = 0;
  Int16 SimPoints;
  double SimErrY = 0;
  Int16 SimErrYAbs;  ///< 0: SimErrY is a percentage of y
  double SimErrX = 0;
  Int16 SimErrXAbs;  ///< 0: SimErrX is a percentage of x
};

}  // namespace vk
