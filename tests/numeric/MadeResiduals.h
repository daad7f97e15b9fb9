#pragma once

#include <functional>
#include <vector>

#include "numeric/ResidualFunction.h"

namespace vk {

/// Residuals given by a function of parameters and the number of the residual.
class MadeResiduals : public ResidualFunction {
 public:
  using Residual = std::function<double(std::span<const double>, int)>;
  MadeResiduals(int count, Residual residual) : count_(count), residual_(std::move(residual)) {}

  /// The parameters of each computation.
  std::vector<std::vector<double>> tried;

  std::size_t count() const override { return static_cast<std::size_t>(count_); }
  void at(std::span<const double> parameters, std::span<double> residuals) override {
    tried.emplace_back(parameters.begin(), parameters.end());
    for (int j = 0; j < count_; ++j) residuals[static_cast<std::size_t>(j)] = residual_(parameters, j);
  }

 private:
  int count_;
  Residual residual_;
};

}  // namespace vk
