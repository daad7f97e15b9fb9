#include "numeric/CholeskyFactor.h"

#include <cmath>

namespace vk {
namespace {

// What is left of a variance, as a part of it: less than the first is rounding, below the second one no matrix of
// covariances can come; and what a variable without a part of its own may share with another one.
constexpr double kNothingLeft = 1E-14;
constexpr double kImpossible = -1E-9;
constexpr double kNothingShared = 1E-6;

/// The element on the diagonal; nothing where there is none.
std::optional<double> diagonal(double left, double variance) {
  if (left > kNothingLeft * variance) return std::sqrt(left);
  return left >= kImpossible * variance ? std::optional(0.0) : std::nullopt;
}

/// The element beside the diagonal, of which `own` is that of its column; nothing where there is none.
std::optional<double> beside(double left, double own, double deviations) {
  if (own > 0) return left / own;
  return std::abs(left) <= kNothingShared * deviations ? std::optional(0.0) : std::nullopt;
}

}  // namespace

std::optional<CholeskyFactor> CholeskyFactor::of(const SymmetricMatrix& matrix) {
  CholeskyFactor result;
  for (int a = 1; a <= matrix.size(); ++a) {
    std::vector<double> row;
    for (int b = 1; b <= a; ++b) {
      const std::span<const double> above = b < a ? result.row(b) : row;
      double left = matrix.at(a, b);
      for (std::size_t k = 0; k < row.size(); ++k) left -= row[k] * above[k];
      const auto element =
          b == a ? diagonal(left, matrix.at(a, a))
                 : beside(left, above.back(), std::sqrt(matrix.at(a, a)) * std::sqrt(matrix.at(b, b)));
      if (!element) return std::nullopt;
      row.push_back(*element);
    }
    result.rows_.push_back(std::move(row));
  }
  return result;
}

}  // namespace vk
