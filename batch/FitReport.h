#pragma once

#include <optional>

#include "analysis/Fit.h"
#include "batch/Json.h"

namespace vk {

/// The result of a fit as one object. `linearised` are the usual least-squares covariances of the free parameters.
/// Errors of constant parameters, and what could not be computed, are null.
Json fitReport(const std::string& functionText, const FitResult& result,
               const std::optional<CovarianceMatrix>& linearised);

}  // namespace vk
