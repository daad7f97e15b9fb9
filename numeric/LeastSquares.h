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
  /// Parameters cannot be told apart, or have errors beyond the range of numbers, or there are more of them than
  /// residuals, which are those of the first start then.
  kSingular,
  kFailed,  ///< a residual cannot be computed
};

/// Where a minimisation ended. Indices count from 0.
struct LeastSquaresResult {
  LeastSquaresEnd end = LeastSquaresEnd::kFailed;
  std::size_t failed = 0;          ///< the first residual that could not be computed
  std::vector<double> parameters;  ///< after a failure the start
  std::vector<double> residuals;
  double sum = 0;  ///< of their squares; not finite after a failure
  /// The inverse of J'J, where J holds the derivatives of the residuals: the covariances of the parameters where the
  /// residuals are in units of their errors. Of size 0 where derivatives do not settle or depend on one another.
  CovarianceMatrix covariance;
  int evaluations = 0;  ///< computations of the residuals
};

/// A minimum of the sum of squares. The starts, at least one, have one number for each parameter and come in the order
/// of preference: of several whose sums end within a millionth the first goes on, else that with the least sum.
///
/// Where the allowed evaluations are used up before the steps are small, they are granted once more from there.
/// A start at which a residual cannot be computed is passed over. On the way, a step that leads to such a place is
/// shortened.
LeastSquaresResult leastSquares(ResidualFunction& function, const std::vector<std::vector<double>>& starts);

}  // namespace vk
