#include "analysis/CurveBand.h"

#include <algorithm>
#include <cmath>

#include "analysis/WeightedResiduals.h"
#include "numeric/CentralDifferences.h"
#include "numeric/Distributions.h"

namespace vk {
namespace {

constexpr double kMostDeviations = 1E4;
constexpr int kHalvings = 100;

/// The model at places where nothing is measured.
DataSet pointsAt(std::span<const double> x) {
  DataSet points;
  points.allocate(static_cast<int>(x.size()), kFalse);
  std::ranges::copy(x, points.Xpnt.span(1, points.NumPnt).begin());
  std::ranges::fill(points.ErrYpnt.span(1, points.NumPnt), 1);
  return points;
}

/// The errors of the points over x, joined by straight lines.
class PointErrors {
 public:
  explicit PointErrors(const DataSet& data) {
    const Array<double>& errors = data.kXpntErr != kFalse ? data.ErrEff : data.ErrYpnt;
    for (int j = 1; j <= data.NumPnt; ++j) points_.push_back({data.Xpnt[j], errors[j]});
    std::ranges::stable_sort(points_, {}, &Point::x);
  }

  double at(double x) const {
    const auto right = std::ranges::lower_bound(points_, x, {}, &Point::x);
    if (right == points_.begin()) return points_.front().error;
    if (right == points_.end()) return points_.back().error;
    const Point &a = right[-1], &b = *right;
    return a.error + (b.error - a.error) * ((x - a.x) / (b.x - a.x));
  }

 private:
  struct Point {
    double x, error;
  };
  std::vector<Point> points_;
};

}  // namespace

std::optional<BandWidths> bandWidths(const FitProblem& problem, const ParameterSet& par,
                                     const CurveBand& band, std::span<const double> x) {
  const DataSet places = pointsAt(x);
  WeightedResiduals model({places, problem.model, problem.listener}, par,
                          places.ErrYpnt.span(1, places.NumPnt));
  CentralDifferences differences(model, freeValues(par));
  std::vector<DerivativeColumn> columns;
  for (int i = 1; i <= par.FreeCount; ++i) {
    const double step = firstStep(par.ParValues[par.FreeIndex[i]], band.covariance.deviation(i), 1);
    auto column = differences.by(static_cast<std::size_t>(i) - 1, step);
    if (!column) return std::nullopt;
    columns.push_back(std::move(*column));
  }
  const PointErrors errors(problem.data);
  BandWidths result;
  std::vector<double> gradient(columns.size());
  for (std::size_t k = 0; k < x.size(); ++k) {
    for (std::size_t i = 0; i < columns.size(); ++i) gradient[i] = columns[i].values[k];
    const double value = differences.residuals()[k];
    result.values.push_back(value);
    const double variance = std::isfinite(value) ? std::max(0.0, band.covariance.variance(gradient)) : value;
    const double error = errors.at(x[k]);
    result.confidence.push_back(band.factor * std::sqrt(variance));
    if (band.prediction) result.prediction.push_back(band.factor * std::sqrt(variance + error * error));
  }
  return result;
}

double intervalFactor(double percent, int degreesOfFreedom) {
  const double tail = (1 - percent / 100) / 2;
  NoListener listener;
  const auto above = [&](double t) {
    if (degreesOfFreedom > 0) {
      const Evaluation below = studentCumulative(t, degreesOfFreedom, listener);
      if (below.fault == Fault::kNone) return 1 - below.value;
    }
    return normalUpperTail(t).value;
  };
  double low = 0, high = kMostDeviations;
  for (int k = 0; k < kHalvings; ++k) {
    const double middle = (low + high) / 2;
    (above(middle) > tail ? low : high) = middle;
  }
  return low;
}

}  // namespace vk
