#pragma once

#include <span>
#include <vector>

#include "base/Array.h"
#include "numeric/CholeskyFactor.h"

namespace vk {

/// Normal errors of variables that belong together, as those of fitted parameters. Variables are counted as in
/// `ParValues`, 0 being the independent one.
class CorrelatedErrors {
 public:
  /// Of no variable.
  CorrelatedErrors() = default;
  /// Of variables in ascending order, with their standard deviations and the factor of their correlations.
  CorrelatedErrors(std::span<const int> variables, std::span<const double> deviations,
                   const CholeskyFactor& factor);

  bool empty() const { return rows_.empty(); }
  /// True for one of the variables.
  bool has(int variable) const {
    const auto at = static_cast<std::size_t>(variable);
    return at < rows_.size() && !rows_[at].empty();
  }
  /// The error of one of the variables: `deviates(k)` is an independent normal deviate for each of them up to it, and
  /// any number for other ones.
  template <class Deviates>
  double error(int variable, Deviates deviates) const {
    double sum = 0;
    int k = 0;
    for (const double part : rows_[static_cast<std::size_t>(variable)]) sum += part * deviates(k++);
    return sum;
  }
  /// The standard deviation of a function with these derivatives by all variables, as far as these ones make it.
  double deviation(const Array<double>& derivatives) const;

 private:
  std::vector<std::vector<double>> rows_;  // of each variable: the parts of the deviates in its error
};

}  // namespace vk
