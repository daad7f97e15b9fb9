#pragma once

#include <optional>
#include <vector>

#include "analysis/ProfileIntervals.h"
#include "batch/DerivedTable.h"

namespace vk {

/// All that a fit at a terminal was asked for and has found.
struct FitFindings {
  bool fitted() const { return result.status != FitStatus::kFailed; }
  bool hasValues() const { return fitted() || refined.converged(); }
  /// The parameters of the true minimum where there is one, else those of the fit.
  const ParameterSet& par() const { return refined.converged() ? refined.par : result.par; }
  /// The covariances that belong to them.
  std::optional<CovarianceMatrix> covariance() const {
    if (!refined.converged()) return linearised;
    return refined.covariance.size() > 0 ? std::optional(refined.covariance) : std::nullopt;
  }

  ParameterSet start;
  FitResult result;
  std::optional<CovarianceMatrix> linearised;  ///< of the free parameters at the result
  std::optional<XErrors> xErrors;  ///< the true minimum is wanted, with this account of errors in x
  RefinedFit refined;
  bool profile = false;                     ///< intervals about the minimum are wanted
  std::vector<ProfileIntervals> intervals;  ///< of the free parameters; none without a minimum with errors
  DerivedTable derived;
};

}  // namespace vk
