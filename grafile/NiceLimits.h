#pragma once

#include "base/Array.h"
#include "base/Int16.h"

/// The limits of axes.
namespace vk {

/// Rounds an interval with high above low outward to multiples of a round step, and tells how many steps it
/// has. Another interval is a run-time error, which leaves all three as they were.
void NiceLimits(double& low, double& high, Int16& divisions);

/// Opens a range of zero, which has no scale, around its value; so one that holds nothing but the rounding of its
/// values and could not be told with 15 digits.
void openRange(double& low, double& high);

/// Smallest and largest of values(1..count); an empty range leaves both.
void RangeOf(double& min, double& max, const Array<double>& values, int count);

}  // namespace vk
