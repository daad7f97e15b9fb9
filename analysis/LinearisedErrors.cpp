#include "analysis/LinearisedErrors.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <vector>

#include "numeric/DirectionSet.h"

namespace vk {
namespace {

using Column = std::vector<double>;

constexpr double kStepOfValue = 0.1;
constexpr double kStepOfError = 0.001;
constexpr double kStepOfZero = 0.01;
constexpr int kMostQuarterings = 14;
constexpr double kFullAgreement = 1E-9;
constexpr double kLeastAgreement = 1E-3;
constexpr double kRankTolerance = 1E-13;
constexpr double kNoAgreement = std::numeric_limits<double>::infinity();

double lengthOf(const Column& column) {
  return std::sqrt(dot(column, column));
}

/// Derivatives by one parameter.
struct Derivatives {
  Column column;
  double disagreement = kNoAgreement;  ///< with those of the step before, as a part of their length
};

class Jacobian {
 public:
  Jacobian(const FitProblem& problem, const ParameterSet& solution);

  /// Derivatives of the weighted residuals by free parameter i, with differences from `step` downward.
  Derivatives derivatives(int i, double step);

 private:
  Column model();
  std::optional<Column> differences(double& parameter, double step);

  FitProblem problem_;
  Array<Int16> freeIndex_;
  Array<double> values_;  // of all parameters
  std::span<const double> x_, weights_;
  std::vector<bool> takesPart_;  // the model and its weight work at the solution
};

Jacobian::Jacobian(const FitProblem& problem, const ParameterSet& solution)
    : problem_(problem), freeIndex_(solution.FreeIndex), values_(solution.ParValues) {
  const DataSet& data = problem.data;
  x_ = data.Xpnt.span(1, data.NumPnt);
  weights_ = (data.kXpntErr != 0 ? data.ErrEff : data.ErrYpnt).span(1, data.NumPnt);
  const Column atSolution = model();
  for (std::size_t j = 0; j < x_.size(); ++j)
    takesPart_.push_back(std::isfinite(atSolution[j] / weights_[j]));
}

// Where the model fails, the result is no number.
Column Jacobian::model() {
  Column result(x_.size());
  std::vector<Fault> faults(x_.size());
  problem_.model.at(x_, values_, result, problem_.listener, faults);
  for (std::size_t j = 0; j < result.size(); ++j) {
    if (faults[j] != Fault::kNone) result[j] = NAN;
  }
  return result;
}

// Central differences of fourth order. Nothing when the step leads to where a point fails that takes part:
// without it the column would be that of other data.
std::optional<Column> Jacobian::differences(double& parameter, double step) {
  const double value = parameter;
  const auto moved = [&](double by) {
    parameter = value + by;
    Column result = model();
    parameter = value;
    return result;
  };
  const Column right = moved(step), left = moved(-step);
  const Column farRight = moved(2 * step), farLeft = moved(-2 * step);
  Column result(x_.size());
  for (std::size_t j = 0; j < result.size(); ++j) {
    if (!takesPart_[j]) continue;
    const double slope = (8 * (right[j] - left[j]) - (farRight[j] - farLeft[j])) / (12 * step);
    result[j] = slope / weights_[j];
    if (!std::isfinite(result[j])) return std::nullopt;
  }
  return result;
}

// Columns without length have lost the parameter in rounding and agree on nothing.
double disagreement(const Column& before, const Column& now) {
  Column change(now);
  for (std::size_t j = 0; j < now.size(); ++j) change[j] -= before[j];
  const double part = lengthOf(change) / lengthOf(now);
  return std::isfinite(part) ? part : kNoAgreement;
}

// Long steps see the curvature, short ones the rounding; between them two successive columns agree best.
Derivatives Jacobian::derivatives(int i, double step) {
  double& parameter = values_[freeIndex_[i]];
  Derivatives best;
  std::optional<Column> before = differences(parameter, step);
  for (int k = 1; k <= kMostQuarterings && best.disagreement > kFullAgreement; ++k) {
    step /= 4;
    std::optional<Column> now = differences(parameter, step);
    const double apart = before && now ? disagreement(*before, *now) : kNoAgreement;
    if (apart < best.disagreement) best = {*now, apart};
    before = std::move(now);
  }
  return best;
}

// The error only lengthens the step: one that the points' errors have made larger than their scatter shows is
// cut down to that.
double firstStep(double value, double error, double scatter) {
  const double byValue = kStepOfValue * std::abs(value);
  const double byError = kStepOfError * error * scatter;
  const double step = std::isfinite(byError) ? std::max(byValue, byError) : byValue;
  return step > 0 ? step : kStepOfZero;
}

// The triangle R of the orthogonal decomposition of the columns, by rows; empty when a column depends on the
// ones before it, as far as can be told of columns known to this part of their length.
std::vector<Column> triangleOf(std::vector<Column> columns, double tolerance) {
  const std::size_t n = columns.size();
  std::vector<double> norms;
  for (const Column& column : columns) norms.push_back(std::sqrt(dot(column, column)));
  std::vector<Column> R(n, Column(n));
  for (std::size_t k = 0; k < n; ++k) {
    R[k][k] = std::sqrt(dot(columns[k], columns[k]));
    if (!(R[k][k] > tolerance * norms[k])) return {};
    for (double& value : columns[k]) value /= R[k][k];
    for (std::size_t l = k + 1; l < n; ++l) {
      R[k][l] = dot(columns[k], columns[l]);
      for (std::size_t j = 0; j < columns[l].size(); ++j) columns[l][j] -= R[k][l] * columns[k][j];
    }
  }
  return R;
}

// Lengths of the rows of the inverse of R.
Column inverseRowLengths(const std::vector<Column>& R) {
  const std::size_t n = R.size();
  Column squares(n);
  for (std::size_t c = 0; c < n; ++c) {
    Column z(n);
    for (std::size_t row = c + 1; row-- > 0;) {
      double sum = row == c ? 1 : 0;
      for (std::size_t k = row + 1; k <= c; ++k) sum -= R[row][k] * z[k];
      z[row] = sum / R[row][row];
      squares[row] += z[row] * z[row];
    }
  }
  std::ranges::transform(squares, squares.begin(), [](double square) { return std::sqrt(square); });
  return squares;
}

}  // namespace

std::optional<Array<double>> linearisedErrors(const FitProblem& problem, const ParameterSet& par,
                                              double chiSquare) {
  const int freedom = problem.data.NumPnt - par.FreeCount;
  // Without a degree of freedom nothing tells the scatter, so that the errors take no part in the steps.
  const double scatter = freedom < 1 ? 0 : std::min(1.0, std::sqrt(chiSquare / freedom));
  Jacobian jacobian(problem, par);
  std::vector<Column> columns;
  double tolerance = kRankTolerance;
  for (int i = 1; i <= par.FreeCount; ++i) {
    const int at = par.FreeIndex[i];
    Derivatives found = jacobian.derivatives(i, firstStep(par.ParValues[at], par.ParDeltas[at], scatter));
    if (!(found.disagreement <= kLeastAgreement)) return std::nullopt;
    tolerance = std::max(tolerance, found.disagreement);
    columns.push_back(std::move(found.column));
  }
  const std::vector<Column> R = triangleOf(std::move(columns), tolerance);
  if (R.empty()) return std::nullopt;
  const Column lengths = inverseRowLengths(R);
  Array<double> errors(par.FreeCount);
  std::ranges::copy(lengths, errors.span(1, par.FreeCount).begin());
  return errors;
}

}  // namespace vk
