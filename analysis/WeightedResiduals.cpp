#include "analysis/WeightedResiduals.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>
#include <numeric>

#include "expr/Formula.h"

namespace vk {
namespace {

constexpr double kSlopeStep = 1E-3;  // of the range of x
constexpr int kMostMoves = 50;
constexpr double kSmallMove = 1E-9;   // in units of dx; the distance feels its square
constexpr double kLeastShare = 1E-6;  // of dy beside dx: with less the rounding of y would decide

/// The places of a slope, in steps from the point.
constexpr std::array kPlaces{-2, -1, 0, 1, 2};

double stepFor(std::span<const double> x) {
  if (x.empty()) return kSlopeStep;
  const auto [least, most] = std::ranges::minmax(x);
  const double reach = most > least ? most - least : std::abs(most);
  return reach > 0 ? kSlopeStep * reach : kSlopeStep;
}

// f holds the values at the places. Of what can be computed the best is taken.
double slopeOf(std::span<const double> f, double h) {
  const double fourth = (8 * (f[3] - f[1]) - (f[4] - f[0])) / (12 * h);
  if (std::isfinite(fourth)) return fourth;
  const double middle = (f[3] - f[1]) / (2 * h);
  if (std::isfinite(middle)) return middle;
  const double right = (4 * f[3] - 3 * f[2] - f[4]) / (2 * h);
  return std::isfinite(right) ? right : (3 * f[2] - 4 * f[1] + f[0]) / (2 * h);
}

double curvatureOf(std::span<const double> f, double h) {
  const double curvature = (f[3] - 2 * f[2] + f[1]) / (h * h);
  return std::isfinite(curvature) ? curvature : 0;
}

}  // namespace

// ---- The model

DataFunction::DataFunction(const FitProblem& problem, const ParameterSet& par)
    : x_(problem.data.Xpnt.span(1, problem.data.NumPnt)),
      y_(problem.data.Ypnt.span(1, problem.data.NumPnt)),
      problem_(problem),
      par_(par) {}

void DataFunction::model(std::span<const double> x, std::span<double> result) {
  faults_.resize(x.size());
  problem_.model.at(x, par_.ParValues, result, problem_.listener, faults_);
  dropFaulty(result, faults_);
}

// ---- Given errors

WeightedResiduals::WeightedResiduals(const FitProblem& problem, const ParameterSet& par,
                                     std::span<const double> errors)
    : DataFunction(problem, par), errors_(errors) {}

void WeightedResiduals::at(std::span<const double> parameters, std::span<double> residuals) {
  setFreeValues(parameters);
  model(x_, residuals);
  for (std::size_t j = 0; j < residuals.size(); ++j) residuals[j] = (residuals[j] - y_[j]) / errors_[j];
}

// ---- Errors in x

SlopeFunction::SlopeFunction(const FitProblem& problem, const ParameterSet& par)
    : DataFunction(problem, par),
      dx_(problem.data.ErrXpnt.span(1, problem.data.NumPnt)),
      dy_(problem.data.ErrYpnt.span(1, problem.data.NumPnt)),
      value_(x_.size()),
      slope_(x_.size()),
      curvature_(x_.size()),
      all_(x_.size()),
      step_(stepFor(x_)),
      places_(kPlaces.size() * x_.size()),
      sides_(places_.size()) {
  std::iota(all_.begin(), all_.end(), std::size_t{0});
}

void SlopeFunction::compute(std::span<const double> shifts, std::span<const std::size_t> points) {
  const std::size_t count = kPlaces.size() * points.size();
  std::size_t next = 0;
  for (const std::size_t j : points) {
    for (const int place : kPlaces) places_[next++] = x_[j] + shifts[j] + place * step_;
  }
  model(std::span(places_).first(count), std::span(sides_).first(count));
  std::span<const double> sides(sides_);
  for (const std::size_t j : points) {
    const auto ofPoint = sides.first(kPlaces.size());
    sides = sides.subspan(kPlaces.size());
    value_[j] = ofPoint[kPlaces.size() / 2];
    slope_[j] = slopeOf(ofPoint, step_);
    curvature_[j] = curvatureOf(ofPoint, step_);
  }
}

void EffectiveResiduals::at(std::span<const double> parameters, std::span<double> residuals) {
  setFreeValues(parameters);
  compute(Column(count()), all_);
  for (std::size_t j = 0; j < residuals.size(); ++j) {
    const double byX = slope_[j] * dx_[j];
    residuals[j] = (value_[j] - y_[j]) / std::sqrt(dy_[j] * dy_[j] + byX * byX);
  }
}

double OrthogonalResiduals::errorOfY(std::size_t j) const {
  return std::max(std::abs(dy_[j]), kLeastShare * std::abs(slope_[j] * dx_[j]));
}

// Moves once towards the place of least distance, or half way back to the best one so far. False where the foot stood
// there already.
bool OrthogonalResiduals::moveFoot(std::size_t j) {
  const double e = value_[j] - y_[j], s = slope_[j], t = shifts_[j];
  const double ey = errorOfY(j), vx = dx_[j] * dx_[j], vy = ey * ey;
  if (vx == 0) return false;
  const double distance = e * e / vy + t * t / vx;
  double next = (t + best_[j]) / 2;
  if (distance <= distances_[j]) {
    distances_[j] = distance;
    best_[j] = t;
    const double newton = vy + (s * s + e * curvature_[j]) * vx;
    next = t - (e * s * vx + t * vy) / (newton > 0 ? newton : vy + s * s * vx);
  }
  // A foot that stays has its value there, so that the distance feels the square of what is left alone.
  if (!(std::abs(next - t) > kSmallMove * std::abs(dx_[j]))) return false;
  shifts_[j] = next;
  return true;
}

void OrthogonalResiduals::at(std::span<const double> parameters, std::span<double> residuals) {
  setFreeValues(parameters);
  shifts_.assign(count(), 0);
  best_ = shifts_;
  distances_.assign(count(), std::numeric_limits<double>::infinity());
  compute(shifts_, all_);
  // At the foot next to nothing may be left of the difference in y, and of its sign.
  for (std::size_t j = 0; j < residuals.size(); ++j) residuals[j] = value_[j] - y_[j];
  std::vector<std::size_t> moving = all_;
  for (int k = 0; k < kMostMoves && !moving.empty(); ++k) {
    std::erase_if(moving, [this](std::size_t j) { return !moveFoot(j); });
    compute(shifts_, moving);
  }
  for (std::size_t j = 0; j < residuals.size(); ++j) {
    const double e = (value_[j] - y_[j]) / errorOfY(j), along = dx_[j] == 0 ? 0 : shifts_[j] / dx_[j];
    residuals[j] = std::copysign(std::sqrt(e * e + along * along), residuals[j]);
  }
}

std::unique_ptr<ResidualFunction> residualsOf(const FitProblem& problem, const ParameterSet& par,
                                              XErrors xErrors) {
  const DataSet& data = problem.data;
  if (data.kXpntErr == kFalse)
    return std::make_unique<WeightedResiduals>(problem, par, data.ErrYpnt.span(1, data.NumPnt));
  if (xErrors == XErrors::kEffective) return std::make_unique<EffectiveResiduals>(problem, par);
  return std::make_unique<OrthogonalResiduals>(problem, par);
}

}  // namespace vk
