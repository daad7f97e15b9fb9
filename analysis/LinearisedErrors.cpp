#include "analysis/LinearisedErrors.h"

#include <algorithm>

#include "analysis/WeightedResiduals.h"
#include "numeric/CentralDifferences.h"
#include "numeric/NormalTriangle.h"

namespace vk {

std::optional<CovarianceMatrix> linearisedCovariance(const FitProblem& problem, const ParameterSet& par,
                                                     double chiSquare) {
  const DataSet& data = problem.data;
  const Array<double>& weights = data.kXpntErr != 0 ? data.ErrEff : data.ErrYpnt;
  WeightedResiduals residuals(problem, par, weights.span(1, data.NumPnt));
  // Without a degree of freedom nothing tells the scatter, so that the errors take no part in the steps.
  const double scatter = scatterOf(chiSquare, data.NumPnt - par.FreeCount);
  CentralDifferences differences(residuals, freeValues(par));
  std::vector<std::vector<double>> columns;
  double tolerance = kRankTolerance;
  for (int i = 1; i <= par.FreeCount; ++i) {
    const int at = par.FreeIndex[i];
    const double step = firstStep(par.ParValues[at], par.ParDeltas[at], scatter);
    std::optional<DerivativeColumn> found = differences.by(static_cast<std::size_t>(i) - 1, step);
    if (!found) return std::nullopt;
    tolerance = std::max(tolerance, found->disagreement);
    columns.push_back(std::move(found->values));
  }
  const auto triangle = NormalTriangle::of(std::move(columns), differences.residuals(), tolerance);
  if (!triangle) return std::nullopt;
  return triangle->covariance();
}

}  // namespace vk
