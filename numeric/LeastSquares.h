#pragma once

#include <vector>

#include "numeric/CovarianceMatrix.h"
#include "numeric/ResidualFunction.h"

/// Least squares to the last digits: damped steps (Levenberg and Marquardt, in the form of MINPACK's lmdif) from two
/// starts, and then undamped ones (Gauss and Newton) with derivatives by differences of fourth order.
namespace vk {

/// Why a minimisation came to its end.
enum class LeastSquaresEnd {
  kConverged,
  kNoProgress,   ///< no further step makes the sum less, although the last one was not small
  kEvaluations,  ///< the residuals were computed as often as is allowed before the steps became small
  kSingular,     ///< parameters cannot be told apart, or there are more of them than residuals
  kFailed,       ///< a residual cannot be computed
};

/// Where a minimisation ended. Indices count from 0.
struct LeastSquaresResult {
  LeastSquaresEnd end = LeastSquaresEnd::kFailed;
  std::size_t failed = 0;          ///< the first residual that could not be computed
  std::vector<double> parameters;  ///< after a failure the start
  std::vector<double> residuals;
  double sum = 0;  ///< of their squares; infinite after a failure
  CovarianceMatrix
      covariance;  ///< the inverse of J'J; of size 0 where derivatives do not settle or depend on one another
  int evaluations = 0;  ///< computations of the residuals
};

/// A minimum of the sum of squares. The starts, at least one, come in the order of preference: of several whose sums
/// end within a millionth the first goes on, else that with the least sum.
///
/// Where the allowed evaluations are used up before the steps are small, they are granted once more from there.
/// A start at which a residual cannot be computed is passed over. On the way, a step that leads to such a place is
/// shortened.
LeastSquaresResult leastSquares(ResidualFunction& function, const std::vector<std::vector<double>>& starts);

}  // namespace vk
