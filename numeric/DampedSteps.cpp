#include "numeric/DampedSteps.h"

#include <cminpack.h>

#include <algorithm>
#include <cmath>
#include <limits>

#include "numeric/DirectionSet.h"

namespace vk {
namespace {

constexpr int kEvaluationsEach = 400;
constexpr double kTolerance = 1E-10;  // of the sum and of the parameters; forward differences go no further
// A hundred, which is usual, leaps from a far start out of the valley that it lies in.
constexpr double kFirstLength = 1;
// Above all sums, and far from an overflow.
constexpr double kForbidden = 1E150;
enum : int { kStep = 1, kDerivative = 2, kExhausted = 5 };

/// The function as the library calls it.
struct Calls {
  ResidualFunction& function;
  std::vector<double> present;  ///< the residuals of the last step, which is the point of the derivatives
};

// A place where something fails is one to keep away from; a point that fails at the side of a derivative has none.
int residualsOf(void* calls, int count, int parameters, const double* at, double* residuals, int purpose) {
  auto& [function, present] = *static_cast<Calls*>(calls);
  const std::span<double> now(residuals, static_cast<std::size_t>(count));
  function.at({at, static_cast<std::size_t>(parameters)}, now);
  if (purpose == kDerivative) {
    for (std::size_t j = 0; j < now.size(); ++j) {
      if (!std::isfinite(now[j])) now[j] = present[j];
    }
  } else if (firstFailure(now) == now.size()) {
    std::ranges::copy(now, present.begin());
  } else {
    std::ranges::fill(now, kForbidden);
  }
  return 0;
}

}  // namespace

DampedResult dampedSteps(ResidualFunction& function, const std::vector<double>& start) {
  const std::size_t M = function.count(), N = start.size();
  DampedResult result{.start = start, .parameters = start, .residuals = std::vector<double>(M), .errors = {}};
  result.errors.resize(N);
  function.at(result.parameters, result.residuals);
  result.evaluations = 1;
  result.sum = std::numeric_limits<double>::infinity();
  if (firstFailure(result.residuals) < M) return result;

  Calls calls{function, result.residuals};
  const int m = static_cast<int>(M), n = static_cast<int>(N);
  std::vector<double> scales(N), triangle(M * N), dots(N), w1(N), w2(N), w3(N), w4(M);
  std::vector<int> order(N);
  int evaluations = 0;
  const int end =
      lmdif(residualsOf, &calls, m, n, result.parameters.data(), result.residuals.data(), kTolerance,
            kTolerance, 0, kEvaluationsEach * (n + 1), 0, scales.data(), 1, kFirstLength, 0, &evaluations,
            triangle.data(), m, order.data(), dots.data(), w1.data(), w2.data(), w3.data(), w4.data());
  result.evaluations += evaluations;
  result.exhausted = end == kExhausted;
  const double sum = dot(result.residuals, result.residuals);
  if (std::isfinite(sum)) result.sum = sum;
  covar(n, triangle.data(), m, order.data(), 0, w1.data());
  for (std::size_t i = 0; i < N; ++i) {
    const double variance = triangle[i * M + i];
    if (variance > 0 && std::isfinite(variance)) result.errors[i] = std::sqrt(variance);
  }
  return result;
}

}  // namespace vk
