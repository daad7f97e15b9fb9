#include "numeric/CentralDifferences.h"

#include <algorithm>
#include <cmath>
#include <limits>

#include "numeric/DirectionSet.h"

namespace vk {
namespace {

constexpr double kStepOfValue = 0.1;
constexpr double kStepOfError = 0.001;
constexpr double kStepOfZero = 0.01;
constexpr int kMostQuarterings = 14;
constexpr double kFullAgreement = 1E-9;
constexpr double kLeastAgreement = 1E-3;
constexpr double kNoAgreement = std::numeric_limits<double>::infinity();

double lengthOf(std::span<const double> column) {
  return std::sqrt(dot(column, column));
}

// A parameter without any effect has one that is known: none.
double disagreement(std::span<const double> before, std::span<const double> now) {
  double sum = 0;
  for (std::size_t j = 0; j < now.size(); ++j) sum += (now[j] - before[j]) * (now[j] - before[j]);
  if (sum == 0) return 0;
  const double part = std::sqrt(sum) / lengthOf(now);
  return std::isfinite(part) ? part : kNoAgreement;
}

}  // namespace

std::size_t firstFailure(std::span<const double> residuals) {
  const auto at =
      std::ranges::find_if_not(residuals, [](double residual) { return std::isfinite(residual); });
  return static_cast<std::size_t>(at - residuals.begin());
}

CentralDifferences::CentralDifferences(ResidualFunction& function, std::vector<double> parameters)
    : function_(function), parameters_(std::move(parameters)), residuals_(function.count()) {
  compute(residuals_);
}

void CentralDifferences::compute(Column& residuals) {
  function_.at(parameters_, residuals);
  ++evaluations_;
}

std::optional<CentralDifferences::Column> CentralDifferences::differences(std::size_t i, double step) {
  const double value = parameters_[i];
  const auto moved = [&](double by) {
    Column side(residuals_.size());
    parameters_[i] = value + by;
    compute(side);
    parameters_[i] = value;
    return side;
  };
  const Column right = moved(step), left = moved(-step);
  const Column farRight = moved(2 * step), farLeft = moved(-2 * step);
  Column result(residuals_.size());
  for (std::size_t j = 0; j < result.size(); ++j) {
    if (!std::isfinite(residuals_[j])) continue;
    result[j] = (8 * (right[j] - left[j]) - (farRight[j] - farLeft[j])) / (12 * step);
    if (!std::isfinite(result[j])) return std::nullopt;
  }
  return result;
}

// Long steps see the curvature, short ones the rounding; between them two successive columns agree best.
std::optional<DerivativeColumn> CentralDifferences::by(std::size_t i, double step) {
  DerivativeColumn best{.values = {}, .disagreement = kNoAgreement};
  std::optional<Column> before = differences(i, step);
  for (int k = 1; k <= kMostQuarterings && best.disagreement > kFullAgreement; ++k) {
    step /= 4;
    std::optional<Column> now = differences(i, step);
    // So short a step is lost in the rounding.
    if (before && now && lengthOf(*now) == 0 && lengthOf(*before) > 0) break;
    const double apart = before && now ? disagreement(*before, *now) : kNoAgreement;
    if (apart < best.disagreement) best = {*now, step, apart};
    before = std::move(now);
  }
  if (!(best.disagreement <= kLeastAgreement)) return std::nullopt;
  return best;
}

double firstStep(double value, double error, double scatter) {
  const double byValue = kStepOfValue * std::abs(value);
  const double byError = kStepOfError * error * scatter;
  const double step = std::isfinite(byError) ? std::max(byValue, byError) : byValue;
  return step > 0 ? step : kStepOfZero;
}

double scatterOf(double chiSquare, int degreesOfFreedom) {
  return degreesOfFreedom < 1 ? 0 : std::min(1.0, std::sqrt(chiSquare / degreesOfFreedom));
}

}  // namespace vk
