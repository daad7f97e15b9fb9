#pragma once

#include <optional>
#include <vector>

#include "numeric/CovarianceMatrix.h"

namespace vk {

/// A linear least-squares problem |J s + F| = min by the orthogonal decomposition J = Q R, after Gram and Schmidt in
/// the modified form, F being treated as one more column. Indices count from 0.
class NormalTriangle {
 public:
  using Column = std::vector<double>;

  /// `columns` are those of J. Nothing when a column depends on the ones before it, as far as can be told of
  /// columns known to the part `tolerance` of their length, or when a variance is beyond the range of numbers.
  static std::optional<NormalTriangle> of(std::vector<Column> columns, Column F, double tolerance);

  /// s, which makes the sum of squares least.
  Column step() const;
  /// Length of J s.
  double effect() const;
  /// The inverse of J'J.
  CovarianceMatrix covariance() const;

 private:
  std::vector<Column> rows_;  // R[k][l], l >= k
  Column dots_;               // Q'F
};

/// No column can be known better.
inline constexpr double kRankTolerance = 1E-13;

}  // namespace vk
