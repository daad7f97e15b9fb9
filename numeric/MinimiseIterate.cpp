// Stage 2 of a minimisation: step, search, exchange of a direction, until the steps are small.
#include <algorithm>
#include <cmath>

#include "numeric/Minimiser.h"

namespace vk {
namespace {

constexpr int kMostSearchValues = 20;
constexpr double kSearchAccuracy = 0.1;  // of the unit of E, and of the position along the direction

double largestMagnitude(std::span<const double> step, std::span<const double> unit) {
  double largest = 0;
  for (std::size_t i = 0; i < step.size(); ++i) largest = std::max(largest, std::abs(step[i] / unit[i]));
  return largest;
}

}  // namespace

bool Minimiser::iterate() {
  while (true) {
    showProgress();
    if (lastSearch_ && u <= 1) return true;
    lastSearch_ = false;
    ++result_.iterations;
    if (!findStep()) return fail(MinimiseEnd::kIndistinguishable);
    const int leaving = leavingDirection();
    u = largestMagnitude(W.step, E);
    if (u == 0) return true;
    lastSearch_ = u <= 1;
    if (!search()) return false;
    moveToBest();
    if (!replaceDirection(leaving) || exhausted_) return true;
  }
}

void Minimiser::showProgress() {
  untilProgress_ -= options_.icon;
  if (untilProgress_ >= 0) return;
  observer_.progress(result_.iterations, FS, parameters_);
  untilProgress_ = options_.icon * (static_cast<int>(X.size()) - 1);
}

// The step that would be the solution if the model were linear, up to its sign: the search finds out which
// way is downhill. False when it is not finite.
bool Minimiser::findStep() {
  W.directions.project(F, W.dots);
  W.directions.solve(W.dots, W.coefficients);
  W.directions.combine(W.coefficients, W.step);
  return std::ranges::all_of(W.step, [](double t) { return std::isfinite(t); });
}

// The direction with the largest share in the step, which the step itself can stand in for. Among equals the
// last.
int Minimiser::leavingDirection() const {
  int leaving = 0;
  double largest = 0;
  for (std::size_t k = 0; k < W.dots.size(); ++k) {
    const double share = std::abs(W.dots[k] * W.coefficients[k]);
    if (share >= largest) {
      largest = share;
      leaving = static_cast<int>(k);
    }
  }
  return leaving;
}

bool Minimiser::search() {
  Int16 itest = kSearchBeginAt;
  double s = 0;
  double f = FS;
  double reached = 0;
  W.best.begin(FS, X, F);
  while (!exhausted_) {
    LineSearch(W.search, itest, s, f, kMostSearchValues, kSearchAccuracy / u, kSearchAccuracy, options_.step);
    if (itest != kSearchEvaluate) break;
    for (std::size_t i = 0; i < X.size(); ++i) X[i] = X[i] + (s - reached) * W.step[i];
    reached = s;
    if (!computeResiduals(f)) return false;
    ++nf;
    W.best.consider(s, f, X, F);
    exhausted_ = nf > options_.maxit;
  }
  return true;
}

void Minimiser::moveToBest() {
  std::ranges::copy(W.best.best().X, X.begin());
  F = W.best.best().F;
}

// What the two best points of the search differ by becomes a direction in place of the leaving one. False
// when they give none, which ends the iterations.
bool Minimiser::replaceDirection(int leaving) {
  const TriedPoint& best = W.best.best();
  const TriedPoint& second = W.best.second();
  if (!W.best.hasSecond() || std::ranges::equal(best.F, second.F)) {
    u = 0;
    return false;
  }
  W.directions.remove(leaving);
  if (FS - best.sum > 0) {
    FS = best.sum;
    u = u * std::abs(best.position);
  } else {
    u = 0;
  }
  addDirection(best.sum);
  return true;
}

void Minimiser::addDirection(double FB) {
  const TriedPoint& best = W.best.best();
  const TriedPoint& second = W.best.second();
  Direction& direction = W.directions.next();
  std::vector<double>& e = direction.displacement;
  std::vector<double>& h = direction.change;
  std::ranges::transform(best.X, second.X, e.begin(), std::minus{});
  double L = 0;
  double P = 0;
  for (std::size_t j = 0; j < h.size(); ++j) {
    h[j] = best.F[j] - second.F[j];
    L = L + h[j] * h[j];
    P = P + h[j] * F[j];
  }

  // The change is made orthogonal to the present residuals, as it would be at the minimum.
  double tau = FB == 0 ? 0 : -P / FB;
  double square = tau * P + L;
  if (!(square > 0)) {
    tau = 0;
    square = L;
  }
  const double q = 1 / std::sqrt(square);
  for (double& displacement : e) displacement = q * displacement;
  for (std::size_t j = 0; j < h.size(); ++j) h[j] = q * (h[j] + tau * F[j]);
  W.directions.add();
}

}  // namespace vk
