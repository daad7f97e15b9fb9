// Stage 3 of a minimisation: errors and correlations from the directions.
#include <algorithm>
#include <cmath>

#include "numeric/Minimiser.h"

namespace vk {

bool Minimiser::findErrors() {
  if (!computeResiduals(FS)) return false;
  const int N = static_cast<int>(X.size());
  result_.errors.dim(N);
  result_.correlation = CorrelationMatrix(N);
  for (int a = 1; a <= N; ++a) {
    result_.errors[a] = std::sqrt(W.directions.covariance(a - 1, a - 1));
    for (int b = 1; b < a; ++b) {
      const double product = result_.errors[a] * result_.errors[b];
      if (product > 0) result_.correlation.set(a, b, W.directions.covariance(a - 1, b - 1) / product);
    }
  }
  return true;
}

// The displacements of a fit that runs away overflow in their squares.
bool Minimiser::errorsAreFinite() const {
  const auto errors = result_.errors.span(1, result_.errors.upper());
  return std::ranges::all_of(errors, [](double error) { return std::isfinite(error); });
}

// Where the accuracy asked for is coarse against the error found, a tenth of the error is asked for instead.
// True when that calls for a repetition.
bool Minimiser::lowerCoarseAccuracies() {
  bool repeat = false;
  for (std::size_t i = 0; i < X.size(); ++i) {
    const double wanted = result_.errors[static_cast<int>(i) + 1] / 10;
    const bool coarse = E[i] > wanted;
    // QUIRK: the flag is that of the last parameter alone, since each one overwrites it.
    result_.TooCoarse = toFlag(coarse);
    if (coarse && std::abs(E[i]) > 2E-5 * std::abs(X[i])) {
      E[i] = wanted;
      repeat = true;
    }
  }
  return repeat;
}

}  // namespace vk
