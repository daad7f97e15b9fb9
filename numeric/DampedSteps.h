#pragma once

#include <vector>

#include "numeric/ResidualFunction.h"

namespace vk {

/// Where the damped steps from a start have ended.
struct DampedResult {
  bool exhausted = false;  ///< by the evaluations that are allowed, 400 for each parameter and 400 more
  std::vector<double> start;
  std::vector<double> parameters;  ///< the start where a residual cannot be computed there
  std::vector<double> residuals;
  std::vector<double> errors;  ///< of the parameters, roughly; 0 where the derivatives do not tell
  double sum = 0;              ///< of the squares; infinite where a residual cannot be computed
  int evaluations = 0;
};

/// Least squares with derivatives by forward differences: the method of Levenberg and Marquardt as MINPACK's lmdif has
/// it. The first step is at most one scaled length long. There must be at least as many residuals as parameters.
DampedResult dampedSteps(ResidualFunction& function, const std::vector<double>& start);

}  // namespace vk
