#include "analysis/DataResiduals.h"

#include <algorithm>
#include <cmath>

namespace vk {

DataResiduals::DataResiduals(const FitProblem& problem, ParameterSet& par, std::span<const double> errors)
    : problem_(problem), par_(par), errors_(errors) {}

bool DataResiduals::ComputeResiduals(std::span<const double> X, std::span<const double> last,
                                     std::span<double> F, double& sum) {
  storeFreeValues(par_, X);
  const auto x = problem_.data.Xpnt.span(1, problem_.data.NumPnt);
  bool worked = true;
  sum = 0;
  // In pieces, so that the model's values are still near when they are weighed.
  for (std::size_t begin = 0; begin < F.size(); begin += kPiece) {
    const std::size_t count = std::min(kPiece, F.size() - begin);
    const auto values = std::span(values_).first(count);
    // QUIRK: of a run over the data only the last point's failure is seen.
    const Fault ofLast =
        problem_.model.at(x.subspan(begin, count), par_.ParValues, values, problem_.listener);
    worked = weigh(begin, last.subspan(begin, count), F.subspan(begin, count), sum) && ofLast == Fault::kNone;
  }
  return worked;
}

// Gives whether both statements of the last point worked; one that fails leaves what was.
bool DataResiduals::weigh(std::size_t begin, std::span<const double> last, std::span<double> F, double& sum) {
  const auto y = problem_.data.Ypnt.span(1, problem_.data.NumPnt).subspan(begin);
  const auto errors = errors_.subspan(begin);
  const auto residuals = std::span(values_).first(F.size());
  for (std::size_t j = 0; j < residuals.size(); ++j) residuals[j] = (residuals[j] - y[j]) / errors[j];
  // A residual that is not finite, as where the error is 0, shows in the sum.
  double total = sum;
  for (const double residual : residuals) total = total + residual * residual;
  if (!std::isfinite(total)) return addOneByOne(last, F, sum);
  std::ranges::copy(residuals, F.begin());
  sum = total;
  return true;
}

bool DataResiduals::addOneByOne(std::span<const double> last, std::span<double> F, double& sum) const {
  bool worked = true;
  for (std::size_t j = 0; j < F.size(); ++j) {
    worked = std::isfinite(values_[j]);
    F[j] = worked ? values_[j] : last[j];
    const double grown = sum + F[j] * F[j];
    if (std::isfinite(grown)) {
      sum = grown;
    } else {
      worked = false;
    }
  }
  return worked;
}

}  // namespace vk
