#include "analysis/DerivedQuantities.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <vector>

#include "numeric/CentralDifferences.h"

namespace vk {
namespace {

constexpr double kStepOfValue = 0.1;
// A change by so small a part of the quantity over the error of a parameter is none.
constexpr double kNoChange = 1E-11;
constexpr double kSmallest = 1E-100;  // its square is a number, too
constexpr double kRounding = std::numeric_limits<double>::epsilon();
// Where correlations leave less of a variance, its digits come from rounding.
constexpr double kLeftOfVariance = 1E3 * kRounding;

/// A quantity as a function of one parameter. Beside it stand a line, without whose length the differences of a
/// quantity that does not change would have nothing to be compared with, and a jump as high as the rounding, by which
/// the differences of short steps, where rounding has taken the change away, disagree.
class QuantityOfParameter : public ResidualFunction {
 public:
  /// At the point that is looked at, parameter and quantity have these values.
  QuantityOfParameter(Formula& quantity, int parameter, double point, double error, double value,
                      EvaluationListener& listener)
      : quantity_(quantity),
        parameter_(parameter),
        point_(point),
        slope_(std::max(kNoChange * std::abs(value) / error, kSmallest)),
        jump_(kRounding * std::abs(value)),
        listener_(listener) {}

  std::size_t count() const override { return 3; }
  void at(std::span<const double> parameters, std::span<double> residuals) override {
    quantity_.setValue(parameter_, parameters[0]);
    const Evaluation found = quantity_.value(listener_);
    residuals[0] = found.fault == Fault::kNone ? found.value : std::numeric_limits<double>::quiet_NaN();
    residuals[1] = slope_ * parameters[0];
    residuals[2] = std::copysign(jump_, parameters[0] - point_);
  }

 private:
  Formula& quantity_;
  int parameter_;
  double point_, slope_, jump_;
  EvaluationListener& listener_;
};

/// The error from the derivatives by the free parameters.
std::optional<double> errorOf(Formula& quantity, double value, const ParameterSet& par,
                              const CovarianceMatrix& covariance, EvaluationListener& listener) {
  std::vector<double> gradient;
  double largest = 0;
  for (int k = 1; k <= covariance.size(); ++k) {
    const int i = par.FreeIndex[k];
    const double at = par.ParValues[i], error = covariance.deviation(k);
    QuantityOfParameter function(quantity, i, at, error, value, listener);
    const double step = std::max(kStepOfValue * std::abs(at), error);
    const auto column = CentralDifferences(function, {at}).by(0, step);
    quantity.setValue(i, at);
    if (!column) return std::nullopt;
    gradient.push_back(column->values[0]);
    largest += std::abs(gradient.back()) * error;
  }
  const double variance = covariance.variance(gradient);
  if (!std::isfinite(variance) || variance < kLeftOfVariance * largest * largest) return std::nullopt;
  return std::sqrt(variance);
}

}  // namespace

std::string quantityDefinition(const std::string& formula, const ParameterSet& par) {
  std::string names;
  for (int i = 1; i <= par.ParCount; ++i) names += (i == 1 ? "" : ",") + par.name(i);
  return "y@" + names + "@ @ @" + formula;
}

int ambiguousParameter(const CompiledExpression& quantity, const ParameterSet& par) {
  for (int i = 1; i <= par.ParCount; ++i) {
    if (!quantity.uses(i)) continue;
    for (int k = i + 1; k <= par.ParCount; ++k) {
      if (par.name(k) == par.name(i)) return i;
    }
  }
  return 0;
}

QuantityValue quantityOf(Formula& quantity, const ParameterSet& par,
                         const std::optional<CovarianceMatrix>& covariance, EvaluationListener& listener) {
  for (int i = 1; i <= par.ParCount; ++i) quantity.setValue(i, par.ParValues[i]);
  const Evaluation found = quantity.value(listener);
  QuantityValue result;
  if (found.fault != Fault::kNone) return result;
  result.value = found.value;
  if (covariance) result.error = errorOf(quantity, found.value, par, *covariance, listener);
  return result;
}

}  // namespace vk
