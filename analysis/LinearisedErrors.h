#pragma once

#include <optional>

#include "analysis/Fit.h"
#include "base/Array.h"

namespace vk {

/// The usual errors of a least-squares solution, to be compared with those of other programs: square roots of
/// the diagonal of the inverse of J'J, J being the derivatives of the weighted residuals by the free
/// parameters at the solution. 1..N, in the order of the free parameters; nothing when J'J has no
/// inverse.
///
/// For use after a fit, with its chi-square: weights are the errors that it used, `ErrEff` for data with errors in x.
/// Its errors of the parameters only set the size of the first differences, which shrink until the derivatives
/// settle; where those of a parameter do not, there is nothing to give. Points at which the model or its weight fails
/// take no part.
std::optional<Array<double>> linearisedErrors(const FitProblem& problem, const ParameterSet& solution,
                                              double chiSquare);

}  // namespace vk
