#include "numeric/LeastSquares.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <optional>

#include "numeric/CentralDifferences.h"
#include "numeric/DampedSteps.h"
#include "numeric/DirectionSet.h"
#include "numeric/NormalTriangle.h"

namespace vk {
namespace {

constexpr double kSameSum = 1E-6;      // as a part of the sum, as the next one
constexpr double kSmallStep = 1E-3;    // in standard deviations, by the scatter
constexpr double kTinyStep = 1E-8;     // no next one is needed
constexpr double kTinyChange = 1E-10;  // of a parameter, as a part of it
constexpr double kStepOfSize = 1E-6;   // at least, of the size that the start tells
constexpr double kRounding = 1E-13;    // of that size
constexpr double kHardlyMore = 1E-6;
constexpr int kMostSteps = 30;

/// The undamped steps from where the damped ones have ended.
class Polish {
 public:
  Polish(ResidualFunction& function, DampedResult start);
  LeastSquaresResult run();

 private:
  bool linearise();
  bool advance(const std::vector<double>& step);
  bool isSmall(const std::vector<double>& step, double length) const;

  ResidualFunction& function_;
  std::vector<double> sizes_;  // by the start, for parameters of which nothing but rounding is left
  std::vector<double> steps_;  // of the differences, first ones
  bool exhausted_;
  std::optional<NormalTriangle> triangle_;
  LeastSquaresResult result_;
};

Polish::Polish(ResidualFunction& function, DampedResult start)
    : function_(function), exhausted_(start.exhausted) {
  result_.parameters = std::move(start.parameters);
  result_.residuals = std::move(start.residuals);
  result_.sum = start.sum;
  result_.evaluations = start.evaluations;
  const int freedom = static_cast<int>(function.count()) - static_cast<int>(start.errors.size());
  const double scatter = scatterOf(start.sum, freedom);
  for (std::size_t i = 0; i < start.errors.size(); ++i) {
    sizes_.push_back(firstStep(start.start[i], 0, 0));
    const double step = firstStep(result_.parameters[i], start.errors[i], scatter);
    steps_.push_back(std::max(step, kStepOfSize * sizes_[i]));
  }
}

// The steps that have agreed best are tried first the next time. False where the derivatives do not settle or depend
// on one another, which is the end.
bool Polish::linearise() {
  CentralDifferences differences(function_, result_.parameters);
  std::vector<std::vector<double>> columns;
  double tolerance = kRankTolerance;
  for (std::size_t i = 0; i < steps_.size(); ++i) {
    std::optional<DerivativeColumn> found = differences.by(i, steps_[i]);
    if (!found) break;
    tolerance = std::max(tolerance, found->disagreement);
    steps_[i] = 4 * found->step;
    columns.push_back(std::move(found->values));
  }
  result_.evaluations += differences.evaluations();
  result_.end = columns.size() < steps_.size() ? LeastSquaresEnd::kNoProgress : LeastSquaresEnd::kSingular;
  triangle_.reset();
  if (columns.size() == steps_.size())
    triangle_ = NormalTriangle::of(std::move(columns), result_.residuals, tolerance);
  return triangle_.has_value();
}

// Goes on by the step unless that makes the sum really larger.
bool Polish::advance(const std::vector<double>& step) {
  std::vector<double> next(result_.parameters), residuals(result_.residuals.size());
  for (std::size_t i = 0; i < next.size(); ++i) next[i] += step[i];
  function_.at(next, residuals);
  ++result_.evaluations;
  const double sum = dot(residuals, residuals);
  if (!(sum <= result_.sum * (1 + kHardlyMore))) return false;
  result_.parameters = std::move(next);
  result_.residuals = std::move(residuals);
  result_.sum = sum;
  return true;
}

// A solution that is exact has no scatter to measure a step by, only its digits.
bool Polish::isSmall(const std::vector<double>& step, double length) const {
  if (length <= kSmallStep) return true;
  for (std::size_t i = 0; i < step.size(); ++i) {
    const double tiny = std::max(kTinyChange * std::abs(result_.parameters[i]), kRounding * sizes_[i]);
    if (!(std::abs(step[i]) <= tiny)) return false;
  }
  return true;
}

LeastSquaresResult Polish::run() {
  const double freedom =
      std::max(1.0, static_cast<double>(function_.count()) - static_cast<double>(steps_.size()));
  double before = std::numeric_limits<double>::infinity();
  bool small = false;
  for (int k = 0; k < kMostSteps; ++k) {
    if (!linearise()) {
      if (exhausted_) result_.end = LeastSquaresEnd::kEvaluations;
      result_.covariance = {};
      return std::move(result_);
    }
    result_.covariance = triangle_->covariance();
    const std::vector<double> step = triangle_->step();
    const double length = triangle_->effect() / std::sqrt(result_.sum / freedom);
    small = isSmall(step, length);
    if (!(length < before) || !advance(step) || length <= kTinyStep) break;
    before = length;
  }
  result_.end = small        ? LeastSquaresEnd::kConverged
                : exhausted_ ? LeastSquaresEnd::kEvaluations
                             : LeastSquaresEnd::kNoProgress;
  return std::move(result_);
}

DampedResult betterOf(DampedResult preferred, DampedResult other) {
  const int evaluations = preferred.evaluations + other.evaluations;
  const bool same = other.sum >= preferred.sum * (1 - kSameSum);
  DampedResult better = same ? std::move(preferred) : std::move(other);
  better.evaluations = evaluations;
  return better;
}

DampedResult goneOn(ResidualFunction& function, DampedResult from) {
  DampedResult result = dampedSteps(function, from.parameters);
  result.start = std::move(from.start);
  result.evaluations += from.evaluations;
  return result;
}

// More parameters than residuals.
LeastSquaresResult undetermined(ResidualFunction& function, const std::vector<double>& start) {
  LeastSquaresResult result{.end = LeastSquaresEnd::kSingular,
                            .parameters = start,
                            .residuals = std::vector<double>(function.count()),
                            .covariance = {},
                            .evaluations = 1};
  function.at(start, result.residuals);
  result.sum = dot(result.residuals, result.residuals);
  return result;
}

}  // namespace

LeastSquaresResult leastSquares(ResidualFunction& function, const std::vector<std::vector<double>>& starts) {
  if (function.count() < starts.front().size()) return undetermined(function, starts.front());
  DampedResult best = dampedSteps(function, starts.front());
  for (auto start = starts.begin() + 1; start != starts.end(); ++start)
    best = betterOf(std::move(best), dampedSteps(function, *start));
  // Lengths that were scaled where the way began can make the steps in a valley shorter than they need be.
  if (best.exhausted) best = goneOn(function, std::move(best));
  const std::size_t failed = firstFailure(best.residuals);
  if (std::isfinite(best.sum)) return Polish(function, std::move(best)).run();
  return {.end = failed < best.residuals.size() ? LeastSquaresEnd::kFailed : LeastSquaresEnd::kNoProgress,
          .failed = failed,
          .parameters = std::move(best.parameters),
          .residuals = std::move(best.residuals),
          .sum = best.sum,
          .covariance = {},
          .evaluations = best.evaluations};
}

}  // namespace vk
