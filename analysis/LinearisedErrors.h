#pragma once

#include <optional>

#include "analysis/Fit.h"
#include "numeric/CovarianceMatrix.h"

namespace vk {

/// The usual covariances of a least-squares solution, to be compared with those of other programs: the inverse of
/// J'J, J being the derivatives of the weighted residuals by the free parameters at the solution, in whose order they
/// come; nothing when J'J has no inverse.
///
/// For use after a fit, with its chi-square: weights are the errors that it used, `ErrEff` for data with errors in x.
/// Its errors of the parameters only set the size of the first differences, which shrink until the derivatives
/// settle; where those of a parameter do not, there is nothing to give. Points at which the model or its weight fails
/// take no part.
std::optional<CovarianceMatrix> linearisedCovariance(const FitProblem& problem, const ParameterSet& solution,
                                                     double chiSquare);

}  // namespace vk
