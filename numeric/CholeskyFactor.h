#pragma once

#include <optional>
#include <span>
#include <vector>

#include "numeric/CovarianceMatrix.h"

namespace vk {

/// The lower triangle L of a matrix L L' of correlations or covariances. Such a matrix may be singular: a variable
/// that those before it settle has a 0 on the diagonal.
class CholeskyFactor {
 public:
  /// Nothing for a matrix that is not positive semidefinite, as far as its digits tell.
  static std::optional<CholeskyFactor> of(const SymmetricMatrix& matrix);

  /// Row a of L, from 1 to the size of the matrix: a numbers.
  std::span<const double> row(int a) const { return rows_[static_cast<std::size_t>(a) - 1]; }

 private:
  std::vector<std::vector<double>> rows_;
};

}  // namespace vk
