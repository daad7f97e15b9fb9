#pragma once

#include <optional>

#include "analysis/Fit.h"
#include "batch/Json.h"

namespace vk {

/// The result of a fit as one object. `linearised` are the usual least-squares errors of the free
/// parameters, 1..N. Errors of constant parameters, and what could not be computed, are null.
Json fitReport(const std::string& functionText, const FitResult& result,
               const std::optional<Array<double>>& linearised);

}  // namespace vk
