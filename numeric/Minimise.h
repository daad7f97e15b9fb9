#pragma once

#include <array>
#include <span>
#include <vector>

#include "base/Array.h"
#include "base/Int16.h"
#include "numeric/BestPoints.h"
#include "numeric/CovarianceMatrix.h"
#include "numeric/DirectionSet.h"
#include "numeric/LineSearch.h"

/// Least squares without derivatives: the method of Gauss and Newton with secants in the place of the Jacobian.
///
/// The directions d_k, as many as parameters, have with them the changes h_k of the residuals F that they cause,
/// scaled to |h_k| = 1; the first ones are the parameters themselves, by forward differences.
/// - The step is that of the linear model F - sum c_k h_k: s = sum c_k d_k with H c = g, H_kl = h_k . h_l and
///   g_k = h_k . F. A line search along s follows, which finds out the sign too.
/// - The two best points of the search differ by (d, h). They take the place of the direction with the largest
///   |g_k c_k|, with h + tau F for h, tau = -(h . F) / (F . F): orthogonal to F, as it would be at the minimum.
/// - An iteration whose step, and whose move by the search, is in no parameter above its accuracy ends the pass.
/// - The covariances are C_ab = sum d_ka d_kb, which is the inverse of the normal matrix if the h_k are orthonormal.
namespace vk {

/// The weighted residuals whose sum of squares is made least.
class Residuals {
 public:
  virtual ~Residuals() = default;
  /// Fills F with the residuals at the parameters X, and `sum` with the sum of their squares. False when that
  /// failed, which ends the minimisation. A residual that cannot be computed is that of `last`, the ones computed
  /// last, which may stand in F itself.
  virtual bool ComputeResiduals(std::span<const double> X, std::span<const double> last, std::span<double> F,
                                double& sum) = 0;
};

/// Hears how a minimisation goes on.
class MinimiseObserver {
 public:
  virtual ~MinimiseObserver() = default;
  /// Before the first iteration of a pass and then every N iterations: iterations so far, present sum of
  /// squares and parameters (index from 1).
  virtual void progress(int iteration, double sum, const Array<double>& X) = 0;
};

/// Why a minimisation came to its end.
enum class MinimiseEnd {
  kCompleted,          ///< stage 3 has given errors; `TooCoarse` says whether they can be relied upon
  kNoEffect,           ///< a parameter does not change the residuals
  kResidualsFailed,    ///< the residuals could not be computed
  kIndistinguishable,  ///< parameters whose effects cannot be told apart
  kErrorsNotFinite,    ///< the errors of the last pass are no numbers to show
};

/// What came of a minimisation; after a failure only the figures up to it.
struct MinimiseResult {
  MinimiseEnd end = MinimiseEnd::kCompleted;
  int parameter = 0;    ///< the one without effect, from 1
  double FS = 0;        ///< sum of the squares at the end
  int iterations = 0;   ///< of the last pass
  int evaluations = 0;  ///< residual computations of all passes
  int passes = 0;       ///< 1 to 4
  Flag TooCoarse;
  Array<double> errors;  ///< 1..N
  CorrelationMatrix correlation;
};

/// How a minimisation goes on; the values here are those of the fit.
struct MinimiseOptions {
  Int16 icon = 1;      ///< progress every icon * N iterations; 0 for none
  Int16 maxit = 1000;  ///< residual computations of a pass, above which the iterations end
  double step = 0.5;   ///< first step of each search, in units of the linearised step
};

/// Work space of a minimisation; can serve several of the same size. What it is made of is nobody else's.
struct MinimiseWork {
  /// For M residuals and N parameters.
  MinimiseWork(int M, int N);

  std::array<std::vector<double>, 3> residuals;  ///< places for them beside the caller's
  DirectionSet directions;
  BestPoints best;
  LineSearchState search;
  std::vector<double> dots, coefficients, step;
};

/// Makes the sum of squares of M residuals least over N parameters.
///
/// F (1..M) holds the residuals, X (1..N) the parameters, in and out. E (1..N) is the accuracy asked for, the
/// step of the first differences and the unit of the step lengths; it is lowered where the errors ask for it,
/// and the minimisation is then repeated, at most 3 times. After a failure X is the point tried last. Arrays that are
/// shorter are run-time error 9.
MinimiseResult Minimise(Residuals& residuals, Int16 M, Int16 N, Array<double>& F, Array<double>& X,
                        Array<double>& E, const MinimiseOptions& options, MinimiseWork& W,
                        MinimiseObserver& observer);

}  // namespace vk
