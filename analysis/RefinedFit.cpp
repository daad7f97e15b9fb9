#include "analysis/RefinedFit.h"

#include <cmath>

#include "numeric/SpecialFunctions.h"

namespace vk {
namespace {

std::optional<double> confidence(int freedom, double chiSquare) {
  const Evaluation above = fullUpperGamma(freedom / 2.0, chiSquare / 2);
  if (above.fault != Fault::kNone) return std::nullopt;
  return 100 * above.value;
}

}  // namespace

std::optional<double> RefinedFit::scaledError(int i) const {
  if (!reducedChiSquare) return std::nullopt;
  return error(i) * std::sqrt(*reducedChiSquare);
}

RefinedFit refine(const FitProblem& problem, const ParameterSet& start, const FitResult* fit,
                  XErrors xErrors) {
  std::vector<std::vector<double>> starts{freeValues(start)};
  if (fit != nullptr && fit->status != FitStatus::kFailed) starts.push_back(freeValues(fit->par));
  LeastSquaresResult minimum = leastSquares(*residualsOf(problem, start, xErrors), starts);

  RefinedFit result;
  result.end = minimum.end;
  if (minimum.end == LeastSquaresEnd::kFailed) result.failedPoint = static_cast<int>(minimum.failed) + 1;
  result.xErrors = xErrors;
  result.par = start;
  storeFreeValues(result.par, minimum.parameters);
  result.residuals = std::move(minimum.residuals);
  result.chiSquare = minimum.sum;
  result.degreesOfFreedom = problem.data.NumPnt - start.FreeCount;
  if (result.degreesOfFreedom > 0 && minimum.end != LeastSquaresEnd::kFailed) {
    result.reducedChiSquare = minimum.sum / result.degreesOfFreedom;
    result.confidencePercent = confidence(result.degreesOfFreedom, minimum.sum);
  }
  result.covariance = std::move(minimum.covariance);
  result.evaluations = minimum.evaluations;
  return result;
}

}  // namespace vk
