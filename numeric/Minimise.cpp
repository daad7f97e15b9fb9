#include "numeric/Minimise.h"

#include <algorithm>

#include "numeric/Minimiser.h"

namespace vk {
namespace {

constexpr int kMostRepeats = 3;

std::vector<double> numbers(int count) {
  return std::vector<double>(static_cast<std::size_t>(count));
}

}  // namespace

MinimiseWork::MinimiseWork(int M, int N)
    : residuals{numbers(M), numbers(M), numbers(M)},
      directions(N, M),
      dots(numbers(N)),
      coefficients(numbers(N)),
      step(numbers(N)) {}

Minimiser::Minimiser(Residuals& residuals, int M, int N, Array<double>& residualArray,
                     Array<double>& parameters, Array<double>& accuracies, const MinimiseOptions& options,
                     MinimiseWork& work, MinimiseObserver& observer)
    : residuals_(residuals),
      options_(options),
      W(work),
      observer_(observer),
      parameters_(parameters),
      F(residualArray.span(1, M)),
      places_{residualArray.span(1, M), work.residuals[0], work.residuals[1], work.residuals[2]},
      X(parameters.span(1, N)),
      E(accuracies.span(1, N)) {}

MinimiseResult Minimiser::run() {
  for (int repeats = 0;; ++repeats) {
    result_.passes = repeats + 1;
    if (!findFirstDirections() || !iterate() || !findErrors()) break;
    if (!lowerCoarseAccuracies() || repeats == kMostRepeats) break;
  }
  if (result_.end == MinimiseEnd::kCompleted && !errorsAreFinite()) fail(MinimiseEnd::kErrorsNotFinite);
  result_.FS = FS;
  if (F.data() != places_[0].data()) std::ranges::copy(F, places_[0].begin());
  return result_;
}

bool Minimiser::computeResiduals(double& sum) {
  ++result_.evaluations;
  // Of no residuals at all every place is free.
  const auto inUse = [this](std::span<double> place) {
    return !place.empty() && (place.data() == F.data() || W.best.keeps(place.data()));
  };
  const std::span<double> place = *std::ranges::find_if_not(places_, inUse);
  const bool computed = residuals_.ComputeResiduals(X, F, place, sum);
  F = place;
  if (!computed) fail(MinimiseEnd::kResidualsFailed);
  return computed;
}

bool Minimiser::fail(MinimiseEnd end) {
  result_.end = end;
  return false;
}

MinimiseResult Minimise(Residuals& residuals, Int16 M, Int16 N, Array<double>& F, Array<double>& X,
                        Array<double>& E, const MinimiseOptions& options, MinimiseWork& W,
                        MinimiseObserver& observer) {
  return Minimiser(residuals, M, N, F, X, E, options, W, observer).run();
}

}  // namespace vk
