#include "analysis/DataResiduals.h"

#include <cmath>

namespace vk {

DataResiduals::DataResiduals(const FitProblem& problem, ParameterSet& par, std::span<const double> errors)
    : problem_(problem), par_(par), errors_(errors), model_(errors.size()) {}

bool DataResiduals::ComputeResiduals(std::span<const double> X, std::span<double> F, double& sum) {
  storeFreeValues(par_, X);
  const auto x = problem_.data.Xpnt.span(1, problem_.data.NumPnt);
  // QUIRK: of a run over the data only the last point's failure is seen.
  const Fault last = problem_.model.at(x, par_.ParValues, model_, problem_.listener);
  return weigh(F, sum) && last == Fault::kNone;
}

// Gives whether both statements of the last point worked; one that fails stores nothing.
bool DataResiduals::weigh(std::span<double> F, double& sum) const {
  const std::span<const double> y = problem_.data.Ypnt.span(1, problem_.data.NumPnt);
  bool worked = true;
  double total = 0;
  for (std::size_t j = 0; j < F.size(); ++j) {
    const double residual = (model_[j] - y[j]) / errors_[j];
    worked = errors_[j] != 0 && std::isfinite(residual);
    if (worked) F[j] = residual;
    const double grown = total + F[j] * F[j];
    if (std::isfinite(grown)) {
      total = grown;
    } else {
      worked = false;
    }
  }
  sum = total;
  return worked;
}

}  // namespace vk
