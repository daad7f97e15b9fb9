#include <algorithm>
#include <cmath>

#include "base/CheckedMath.h"
#include "base/Rounding.h"
#include "grafile/NiceLimits.h"

namespace vk {
namespace {

/// The step of a span of m * 10^k, with m from 1 to below 10, as a multiple of 10^k.
double stepFactor(double m) {
  if (m < 2) return 0.2;
  return m <= 4 ? 0.5 : 1;
}

}  // namespace

void NiceLimits(double& low, double& high, Int16& divisions) {
  const double L = checked::log10(checked::finite(high - low));
  const double k = Int(L);
  const double unit = checked::finite(stepFactor(std::pow(10, L - k)) * std::pow(10, k));
  const double newLow = checked::finite(unit * Int(checked::divide(low, unit)));
  double t = Int(checked::divide(high, unit));
  if (unit * t < high) t += 1;
  const double newHigh = checked::finite(unit * t);
  divisions = toInt16((newHigh - newLow) / unit);
  low = newLow;
  high = newHigh;
}

void openRange(double& low, double& high) {
  constexpr double kRounding = 1E-13;
  if (high - low > kRounding * std::max(std::abs(low), std::abs(high))) return;
  const double d = low == 0 ? 1 : std::abs(low) / 2;
  low -= d;
  high += d;
}

void RangeOf(double& min, double& max, const Array<double>& values, int count) {
  const auto range = values.span(1, count);
  if (range.empty()) return;
  const auto [smallest, largest] = std::ranges::minmax(range);
  min = smallest;
  max = largest;
}

}  // namespace vk
