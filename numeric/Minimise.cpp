#include "numeric/Minimise.h"

#include "numeric/Minimiser.h"

namespace vk {
namespace {

constexpr int kMostRepeats = 3;

std::vector<double> numbers(int count) {
  return std::vector<double>(static_cast<std::size_t>(count));
}

}  // namespace

CorrelationMatrix::CorrelationMatrix(int count) : size_(count), full_(numbers(count * count)) {
  for (int i = 1; i <= count; ++i) set(i, i, 1);
}

std::size_t CorrelationMatrix::place(int a, int b) const {
  if (a < 1 || a > size_ || b < 1 || b > size_) throw RuntimeError(kIndexOutOfRange);
  return static_cast<std::size_t>((a - 1) * size_ + b - 1);
}

double CorrelationMatrix::at(int a, int b) const {
  return full_[place(a, b)];
}

void CorrelationMatrix::set(int a, int b, double value) {
  full_[place(a, b)] = value;
  full_[place(b, a)] = value;
}

MinimiseWork::MinimiseWork(int M, int N)
    : base(numbers(M)),
      directions(N, M),
      best(N, M),
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
  return result_;
}

bool Minimiser::computeResiduals(double& sum) {
  ++result_.evaluations;
  return residuals_.ComputeResiduals(X, F, sum) || fail(MinimiseEnd::kResidualsFailed);
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
