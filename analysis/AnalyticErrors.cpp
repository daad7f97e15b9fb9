#include "analysis/AnalyticErrors.h"

#include <cmath>

#include "base/CheckedMath.h"
#include "base/Guard.h"

namespace vk {
namespace {

constexpr double kStepsOfValue = 1000;
constexpr double kDerivativeStepOfZero = 0.001;
// A maximum error is taken as so many standard deviations.
constexpr double kMaximumInSigmas = 3;
// The variance of a uniform distribution of half-width a is a*a over this.
constexpr double kUniformDivisor = 3;

/// The model around a base point, and whether what was tried last has failed.
class Surroundings {
 public:
  Surroundings(Model& model, const ParameterSet& par, EvaluationListener& listener)
      : model_(model), values_(par.ParValues), listener_(listener) {}

  // QUIRK: each evaluation clears the failure, so that that of any but the last one is not noticed.
  double value() {
    const Evaluation evaluation = model_.at(values_[0], values_, listener_);
    failed = evaluation.fault != Fault::kNone;
    return evaluation.value;
  }
  double derivative(int variable);

  bool failed = false;

 private:
  double valueAt(int variable, double shifted) {
    guard(failed, [&] { values_[variable] = checked::finite(shifted); });
    return value();
  }

  Model& model_;
  Array<double> values_;
  EvaluationListener& listener_;
};

double Surroundings::derivative(int variable) {
  const double p = values_[variable];
  double h = p / kStepsOfValue;
  if (h == 0) h = kDerivativeStepOfZero;
  const double f1 = valueAt(variable, p + h);
  const double f2 = valueAt(variable, p - h);
  double result = 0;
  guard(failed, [&] { result = checked::divide(checked::finite(f1 - f2), h) / 2; });
  values_[variable] = p;
  return result;
}

void addContribution(double error, double derivative, double& maximum, double& variance) {
  const double t = std::abs(checked::finite(error * derivative));
  const double t2 = checked::finite(t * t);
  maximum = checked::finite(maximum + (error > 0 ? kMaximumInSigmas * t : t));
  variance = checked::finite(variance + (error > 0 ? t2 : t2 / kUniformDivisor));
}

}  // namespace

AnalyticErrors analyticErrors(Model& model, const ParameterSet& par, EvaluationListener& listener) {
  Surroundings around(model, par, listener);
  AnalyticErrors result;
  result.F0 = around.value();
  result.Derivatives.dim(par.ParCount);
  for (int i = 0; i <= par.ParCount; ++i) result.Derivatives[i] = around.derivative(i);
  double variance = 0;
  const auto add = [&](double error, double derivative) {
    guard(around.failed, [&] { addContribution(error, derivative, result.ErrorMax, variance); });
  };
  for (int i = 0; i <= par.ParCount; ++i) {
    if (!par.correlated.has(i)) add(par.ParDeltas[i], result.Derivatives[i]);
  }
  // Errors that belong together have one contribution.
  if (!par.correlated.empty()) add(par.correlated.deviation(result.Derivatives), 1);
  result.ErrorSigma = std::sqrt(variance);
  result.failed = around.failed;
  return result;
}

}  // namespace vk
