#pragma once

#include <array>

#include "analysis/CorrelatedErrors.h"

namespace vk {

/// Errors of two variables with these standard deviations and this correlation.
inline CorrelatedErrors correlatedErrors(std::array<int, 2> variables, std::array<double, 2> deviations,
                                         double correlation) {
  CorrelationMatrix matrix(2);
  matrix.set(1, 2, correlation);
  return {variables, deviations, CholeskyFactor::of(matrix).value()};
}

}  // namespace vk
