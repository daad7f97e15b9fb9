#pragma once

#include <optional>
#include <vector>

#include "numeric/ResidualFunction.h"

namespace vk {

/// Derivatives of all residuals by one parameter.
struct DerivativeColumn {
  std::vector<double> values;  ///< 0 at points that take no part
  double step = 0;             ///< of the differences
  double disagreement = 0;     ///< with the column of the step before, as a part of its length
};

/// Derivatives by central differences of fourth order, with steps that shrink until the column settles.
///
/// Points at which the function fails for the parameters themselves take no part. A step that leads to where another
/// point fails gives nothing: without that point the column would be that of other data.
class CentralDifferences {
 public:
  /// The function, which is called once here, must outlive this.
  CentralDifferences(ResidualFunction& function, std::vector<double> parameters);

  /// The residuals at the parameters.
  const std::vector<double>& residuals() const { return residuals_; }
  /// How often the residuals were computed.
  int evaluations() const { return evaluations_; }

  /// The column of parameter i, from 0: of the steps `step`, `step`/4, ... at most 15, that which agrees best with
  /// the one before; they end where rounding leaves no change. Nothing where no two agree to a thousandth.
  std::optional<DerivativeColumn> by(std::size_t i, double step);

 private:
  using Column = std::vector<double>;

  void compute(Column& residuals);
  std::optional<Column> differences(std::size_t i, double step);

  ResidualFunction& function_;
  std::vector<double> parameters_;
  Column residuals_;
  int evaluations_ = 0;
};

/// A first step for the derivatives by a parameter: a tenth of its value, or a thousandth of its error where that is
/// larger. `scatter` is the root of the reduced chi-square, or 0 where nothing tells it: the error only lengthens the
/// step, so that one which the points' errors have made larger than their scatter shows is cut down to that.
double firstStep(double value, double error, double scatter);

/// The scatter to give to `firstStep`: at most 1, and 0 without degrees of freedom.
double scatterOf(double chiSquare, int degreesOfFreedom);

}  // namespace vk
