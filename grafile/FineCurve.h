#pragma once

#include <functional>
#include <span>
#include <vector>

namespace vk {

/// Points of a curve from left to right; y is not finite where it has none.
struct FineCurve {
  std::vector<double> x, y;
};

/// The range of a curve, and how many centimetres a unit of x and of y has on the page.
struct CurveRange {
  double from, to;
  double cmPerX, cmPerY;
};

/// The values of a function at some places; not finite where it has none.
using CurveValues = std::function<std::vector<double>(std::span<const double> x)>;

/// A function at 400 even places and, where the line through them would leave the curve by more than a fiftieth of a
/// millimetre, or where the curve ends, at places between them.
FineCurve sampleFinely(const CurveRange& range, const CurveValues& values);

}  // namespace vk
