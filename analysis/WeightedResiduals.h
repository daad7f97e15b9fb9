#pragma once

#include <memory>
#include <vector>

#include "analysis/Fit.h"
#include "numeric/ResidualFunction.h"

/// Residuals of a model over data as functions of the free parameters, point by point: unlike those of the fit, what
/// cannot be computed is told.
namespace vk {

/// What all of them have in common: the model over the data.
class DataFunction : public ResidualFunction {
 public:
  /// Parameters that are not free keep their values of `par`. The problem must outlive this.
  DataFunction(const FitProblem& problem, const ParameterSet& par);

  std::size_t count() const override { return x_.size(); }

 protected:
  using Column = std::vector<double>;

  /// From here on the model has these free values.
  void setFreeValues(std::span<const double> values) { storeFreeValues(par_, values); }
  /// The model at some points; where it fails NaN.
  void model(std::span<const double> x, std::span<double> result);

  std::span<const double> x_, y_;

 private:
  FitProblem problem_;
  ParameterSet par_;
  std::vector<Fault> faults_;
};

/// Differences in units of given errors.
class WeightedResiduals : public DataFunction {
 public:
  /// `errors` holds one number for each point and must outlive this.
  WeightedResiduals(const FitProblem& problem, const ParameterSet& par, std::span<const double> errors);
  void at(std::span<const double> parameters, std::span<double> residuals) override;

 private:
  std::span<const double> errors_;
};

/// The model and its slope over the points, moved along x. The slopes are differences of fourth order over a
/// thousandth of the range of x; where a side fails, of second order with the sides that are left.
class SlopeFunction : public DataFunction {
 protected:
  SlopeFunction(const FitProblem& problem, const ParameterSet& par);
  /// Fills `value_`, `slope_` and `curvature_` of some points, from 0, at their places moved by the shifts.
  void compute(std::span<const double> shifts, std::span<const std::size_t> points);

  std::span<const double> dx_, dy_;
  Column value_, slope_, curvature_;
  std::vector<std::size_t> all_;  ///< points

 private:
  double step_;
  Column places_, sides_;  // five for each point
};

/// Differences in units of sqrt(dy^2 + (f'(x) dx)^2), an effective error that moves with the parameters.
class EffectiveResiduals : public SlopeFunction {
 public:
  EffectiveResiduals(const FitProblem& problem, const ParameterSet& par) : SlopeFunction(problem, par) {}
  void at(std::span<const double> parameters, std::span<double> residuals) override;
};

/// Distances of the points from the curve, x and y in units of their errors, with the sign of the difference in y.
///
/// The foot of each is found by Newton's method from the place of the point.
class OrthogonalResiduals : public SlopeFunction {
 public:
  OrthogonalResiduals(const FitProblem& problem, const ParameterSet& par) : SlopeFunction(problem, par) {}
  void at(std::span<const double> parameters, std::span<double> residuals) override;

 private:
  double errorOfY(std::size_t j) const;
  bool moveFoot(std::size_t j);

  Column shifts_, best_;  // of the feet: now, and at the least distances so far
  Column distances_;      // the squares of those
};

/// How errors in x are taken into account.
enum class XErrors { kEffective, kOrthogonal };

/// The residuals of data, whether they have errors in x or not.
std::unique_ptr<ResidualFunction> residualsOf(const FitProblem& problem, const ParameterSet& par,
                                              XErrors xErrors);

}  // namespace vk
