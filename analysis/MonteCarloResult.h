#pragma once

#include "base/Array.h"
#include "base/Int16.h"

namespace vk {

/// The histogram that an error propagation leaves behind.
struct MonteCarloResult {
  Int16 McBinCount;
  Array<double> McBinCentre, McBinHits;  ///< 1..McBinCount
  double McBinWidth = 0;
  Int16 McSamples;
};

}  // namespace vk
