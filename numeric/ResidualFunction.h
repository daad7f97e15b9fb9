#pragma once

#include <cstddef>
#include <span>

namespace vk {

/// Weighted residuals as a smooth function of parameters.
class ResidualFunction {
 public:
  virtual ~ResidualFunction() = default;
  /// How many residuals there are.
  virtual std::size_t count() const = 0;
  /// Fills `residuals`, `count()` numbers, with those at the parameters. What cannot be computed is NaN.
  virtual void at(std::span<const double> parameters, std::span<double> residuals) = 0;
};

/// The first residual that is no finite number, from 0; `count()` where all are.
std::size_t firstFailure(std::span<const double> residuals);

}  // namespace vk
