#pragma once

#include "analysis/ParameterSet.h"
#include "base/Array.h"
#include "expr/Model.h"

namespace vk {

/// The error of a model function by first-order propagation at `ParValues`.
struct AnalyticErrors {
  double F0 = 0;              ///< value of the function
  Array<double> Derivatives;  ///< 0..ParCount, by central differences of a thousandth of each value
  double ErrorMax = 0;    ///< sum of the largest contributions; three standard deviations count as largest
  double ErrorSigma = 0;  ///< standard deviation; a maximum error a stands for a variance of a*a/3
  bool failed = false;    ///< the last evaluation, or a sum after it, could not be computed
};

/// Computes them from the errors in `ParDeltas`. Those that are correlated make one contribution together.
AnalyticErrors analyticErrors(Model& model, const ParameterSet& par, EvaluationListener& listener);

}  // namespace vk
