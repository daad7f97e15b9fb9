#include "analysis/RefinedFit.h"

#include <cmath>

#include "numeric/SpecialFunctions.h"

namespace vk {
namespace {

/// Residuals that somebody hears of every so many points, few enough not to look dead.
class WatchedFunction : public ResidualFunction {
 public:
  WatchedFunction(std::unique_ptr<ResidualFunction> residuals, const std::function<void()>& working)
      : residuals_(std::move(residuals)), working_(working) {}
  std::size_t count() const override { return residuals_->count(); }
  void at(std::span<const double> parameters, std::span<double> residuals) override {
    points_ += count();
    if (points_ >= kPointsAtOnce && working_) {
      points_ = 0;
      working_();
    }
    residuals_->at(parameters, residuals);
  }

 private:
  static constexpr std::size_t kPointsAtOnce = 50'000;

  std::unique_ptr<ResidualFunction> residuals_;
  const std::function<void()>& working_;
  std::size_t points_ = 0;
};

std::optional<double> confidence(int freedom, double chiSquare) {
  const Evaluation above = fullUpperGamma(freedom / 2.0, chiSquare / 2);
  if (above.fault != Fault::kNone) return std::nullopt;
  return 100 * above.value;
}

}  // namespace

std::optional<double> RefinedFit::scaledError(int i) const {
  if (!reducedChiSquare) return std::nullopt;
  return error(i) * std::sqrt(*reducedChiSquare);
}

RefinedFit refine(const FitProblem& problem, const ParameterSet& start, const FitResult* fit, XErrors xErrors,
                  const std::function<void()>& working) {
  std::vector<std::vector<double>> starts{freeValues(start)};
  if (fit != nullptr && fit->status != FitStatus::kFailed) starts.push_back(freeValues(fit->par));
  WatchedFunction residuals(residualsOf(problem, start, xErrors), working);
  LeastSquaresResult minimum = leastSquares(residuals, starts);

  RefinedFit result;
  result.end = minimum.end;
  if (minimum.end == LeastSquaresEnd::kFailed) result.failedPoint = static_cast<int>(minimum.failed) + 1;
  result.xErrors = xErrors;
  result.par = start;
  storeFreeValues(result.par, minimum.parameters);
  result.residuals = std::move(minimum.residuals);
  result.chiSquare = minimum.sum;
  result.degreesOfFreedom = problem.data.NumPnt - start.FreeCount;
  if (result.degreesOfFreedom > 0 && std::isfinite(minimum.sum)) {
    result.reducedChiSquare = minimum.sum / result.degreesOfFreedom;
    result.confidencePercent = confidence(result.degreesOfFreedom, minimum.sum);
  }
  result.covariance = std::move(minimum.covariance);
  result.evaluations = minimum.evaluations;
  return result;
}

}  // namespace vk
