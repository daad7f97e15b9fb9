#pragma once

#include <functional>
#include <optional>

#include "analysis/WeightedResiduals.h"
#include "numeric/LeastSquares.h"

/// The true minimum and the standard errors, beside the results of the fit.
namespace vk {

/// What came of a refined fit. Free parameters come in the order of `par`.
struct RefinedFit {
  bool converged() const { return end == LeastSquaresEnd::kConverged; }
  /// The error of free parameter i, from 1, as the points' errors have it.
  double error(int i) const { return covariance.deviation(i); }
  /// The same as the scatter of the points has it; missing without a degree of freedom.
  std::optional<double> scaledError(int i) const;

  LeastSquaresEnd end = LeastSquaresEnd::kFailed;
  int failedPoint = 0;  ///< the first at which a residual cannot be computed, from 1; 0 where all can
  XErrors xErrors = XErrors::kEffective;
  ParameterSet par;               ///< with the values of the minimum; after a failure those of the start
  std::vector<double> residuals;  ///< (f - y) / error at the minimum, one for each point
  double chiSquare = 0;
  int degreesOfFreedom = 0;
  /// Missing, as the next one, without a degree of freedom and where the chi-square is no number.
  std::optional<double> reducedChiSquare;
  std::optional<double> confidencePercent;  ///< probability of a larger chi-square
  CovarianceMatrix covariance;              ///< of the free parameters; of size 0 where the end leaves none
  int evaluations = 0;                      ///< computations of all residuals
};

/// Makes the chi-square least, from the starting values `start` and from the result of the fit where it has one
/// (status not `kFailed`). Parameters that are constant in `start` stay. Errors in x count at the slope of the present
/// parameters, or by the distance from the curve. `working` runs now and then, of which many points make a long time.
RefinedFit refine(const FitProblem& problem, const ParameterSet& start, const FitResult* fit, XErrors xErrors,
                  const std::function<void()>& working = {});

}  // namespace vk
