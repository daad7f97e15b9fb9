#pragma once

#include <span>
#include <vector>

#include "base/Array.h"
#include "expr/Model.h"

namespace vk {

/// Hears whether a kernel was exhausted.
struct ExhaustionWatch : EvaluationListener {
  void exhausted(Kernel) override { heard = true; }
  bool heard = false;
};

/// Computes a function at all points and gives `take(i, value)` each in its order, until one is not taken: false
/// then. Nothing is told of points that are not given any more.
template <class Take>
bool eachValue(Model& model, const Array<double>& parameters, std::span<const double> x,
               EvaluationListener& listener, Take take) {
  std::vector<double> values(x.size());
  std::vector<Fault> faults(x.size());
  ExhaustionWatch watch;
  model.at(x, parameters, values, watch, faults);
  for (std::size_t i = 0; i < x.size(); ++i) {
    // Who listens hears of an exhausted kernel when its point is computed, between the points beside it.
    const Evaluation value =
        watch.heard ? model.at(x[i], parameters, listener) : Evaluation{values[i], faults[i]};
    if (!take(i, value)) return false;
  }
  return true;
}

}  // namespace vk
