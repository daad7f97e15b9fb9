#include "analysis/CorrelatedErrors.h"

#include <cmath>

namespace vk {

CorrelatedErrors::CorrelatedErrors(std::span<const int> variables, std::span<const double> deviations,
                                   const CholeskyFactor& factor) {
  if (variables.empty()) return;
  rows_.resize(static_cast<std::size_t>(variables.back()) + 1);
  for (std::size_t a = 0; a < variables.size(); ++a) {
    std::vector<double>& row = rows_[static_cast<std::size_t>(variables[a])];
    row.resize(static_cast<std::size_t>(variables[a]) + 1);
    const std::span<const double> parts = factor.row(static_cast<int>(a) + 1);
    for (std::size_t b = 0; b <= a; ++b)
      row[static_cast<std::size_t>(variables[b])] = deviations[a] * parts[b];
  }
}

double CorrelatedErrors::deviation(const Array<double>& derivatives) const {
  std::vector<double> byDeviate(rows_.size());
  for (std::size_t i = 0; i < rows_.size(); ++i) {
    for (std::size_t k = 0; k < rows_[i].size(); ++k)
      byDeviate[k] += derivatives[static_cast<int>(i)] * rows_[i][k];
  }
  double variance = 0;
  for (const double part : byDeviate) variance += part * part;
  return std::sqrt(variance);
}

}  // namespace vk
