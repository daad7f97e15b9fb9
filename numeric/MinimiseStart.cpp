// Stage 1 of a minimisation: one direction for each parameter, by differences.
#include <algorithm>
#include <cmath>

#include "numeric/Minimiser.h"

namespace vk {

bool Minimiser::findFirstDirections() {
  if (!computeResiduals(FS)) return false;
  W.best.begin(FS, X, F);
  W.directions.clear();
  for (std::size_t i = 0; i < X.size(); ++i) {
    if (!addFirstDirection(i)) return false;
  }
  F = W.best.best().F;
  nf = static_cast<int>(X.size()) + 1;
  result_.iterations = 0;
  untilProgress_ = 0;
  lastSearch_ = false;
  exhausted_ = false;
  return true;
}

// A step that is too small for the size of the number would be lost in its last digits. For a parameter that
// is 0 it becomes 0, and the direction then shows no effect.
void Minimiser::raiseTinyAccuracy(std::size_t i) {
  if (std::abs(E[i]) / (1 + std::abs(X[i])) < 1E-6) E[i] = 1E-5 * std::abs(X[i]);
}

bool Minimiser::addFirstDirection(std::size_t i) {
  raiseTinyAccuracy(i);
  double sum = 0;
  X[i] = X[i] + E[i];
  if (!computeResiduals(sum)) return false;
  X[i] = X[i] - E[i];

  Direction& direction = W.directions.next();
  std::ranges::fill(direction.displacement, 0.0);
  std::vector<double>& h = direction.change;
  const std::span<const double> base = W.best.best().F;
  double S = 0;
  for (std::size_t j = 0; j < h.size(); ++j) {
    h[j] = F[j] - base[j];
    S = S + h[j] * h[j];
  }
  if (!(S > 0)) {
    result_.parameter = static_cast<int>(i) + 1;
    return fail(MinimiseEnd::kNoEffect);
  }
  const double q = 1 / std::sqrt(S);
  direction.displacement[i] = E[i] * q;
  for (double& change : h) change = change * q;
  W.directions.add();
  return true;
}

}  // namespace vk
