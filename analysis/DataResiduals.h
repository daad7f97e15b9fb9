#pragma once

#include <array>
#include <span>

#include "analysis/Fit.h"

namespace vk {

/// Residuals of a model function over data, weighted by the given errors of y.
class DataResiduals : public Residuals {
 public:
  /// `errors` holds one number for each point; all must outlive this object. The free values go to their places in
  /// `par`.
  DataResiduals(const FitProblem& problem, ParameterSet& par, std::span<const double> errors);

  /// Leaves X in `ParValues`. Tells of the last point alone: a failure at an earlier one is not noticed, and that
  /// point takes part with its residual in `last`.
  bool ComputeResiduals(std::span<const double> X, std::span<const double> last, std::span<double> F,
                        double& sum) override;

 private:
  static constexpr std::size_t kPiece = 1024;

  bool weigh(std::size_t begin, std::span<const double> last, std::span<double> F, double& sum);
  bool addOneByOne(std::span<const double> last, std::span<double> F, double& sum) const;

  FitProblem problem_;
  ParameterSet& par_;
  std::span<const double> errors_;
  std::array<double, kPiece> values_;  // of a piece: the model's, and then the residuals
};

}  // namespace vk
