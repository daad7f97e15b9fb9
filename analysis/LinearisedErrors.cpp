#include "analysis/LinearisedErrors.h"

#include <algorithm>
#include <cmath>
#include <vector>

#include "analysis/DirectionSet.h"
#include "expr/CmpMod.h"

namespace vk {
namespace {

using Column = std::vector<double>;

constexpr double kStepOfError = 0.01;
constexpr double kLeastRelativeStep = 1E-7;  // below, the differences drown in rounding
constexpr double kStepOfZero = 1E-4;
constexpr int kMostRounds = 3;
constexpr double kRankTolerance = 1E-13;

class Jacobian {
 public:
  Jacobian(Session& session, Dialogs& dialogs);
  ~Jacobian() { session_.ErrFlag = errFlagBefore_; }
  Jacobian(const Jacobian&) = delete;
  Jacobian& operator=(const Jacobian&) = delete;

  /// Derivatives of the weighted residuals by free parameter i, with differences of `step`.
  Column derivative(int i, double step);

 private:
  Column model(double& parameter, double value);

  Session& session_;
  Dialogs& dialogs_;
  std::span<const double> x_, weights_;
  Int16 errFlagBefore_;
};

Jacobian::Jacobian(Session& session, Dialogs& dialogs)
    : session_(session), dialogs_(dialogs), errFlagBefore_(session.ErrFlag) {
  const DataSet& data = session.data;
  x_ = data.Xpnt.span(1, data.NumPnt);
  weights_ = (data.kXpntErr != 0 ? data.ErrEff : data.ErrYpnt).span(1, data.NumPnt);
}

// The model with one parameter moved; where it fails, the result is no number.
Column Jacobian::model(double& parameter, double value) {
  const double before = parameter;
  parameter = value;
  Column result(x_.size());
  std::vector<Int16> flags(x_.size());
  evaluateFunctionAt(session_, dialogs_, x_, result, flags);
  for (std::size_t j = 0; j < result.size(); ++j) {
    if (flags[j] != 0) result[j] = NAN;
  }
  parameter = before;
  return result;
}

// Central differences of fourth order.
Column Jacobian::derivative(int i, double step) {
  double& parameter = session_.par.ParValues[session_.par.FreeIndex[i]];
  const Column right = model(parameter, parameter + step);
  const Column left = model(parameter, parameter - step);
  const Column farRight = model(parameter, parameter + 2 * step);
  const Column farLeft = model(parameter, parameter - 2 * step);
  Column result(x_.size());
  for (std::size_t j = 0; j < result.size(); ++j) {
    const double slope = (8 * (right[j] - left[j]) - (farRight[j] - farLeft[j])) / (12 * step);
    const double weighted = slope / weights_[j];
    result[j] = std::isfinite(weighted) ? weighted : 0;
  }
  return result;
}

double stepFor(double value, double error) {
  const double step = std::isfinite(error) ? kStepOfError * std::abs(error) : 0;
  const double wanted = std::max(step, kLeastRelativeStep * std::abs(value));
  return wanted > 0 ? wanted : kStepOfZero;
}

// The triangle R of the orthogonal decomposition of the columns, by rows; empty when a column depends on the
// ones before it.
std::vector<Column> triangleOf(std::vector<Column> columns) {
  const std::size_t n = columns.size();
  std::vector<double> norms;
  for (const Column& column : columns) norms.push_back(std::sqrt(dot(column, column)));
  std::vector<Column> R(n, Column(n));
  for (std::size_t k = 0; k < n; ++k) {
    R[k][k] = std::sqrt(dot(columns[k], columns[k]));
    if (!(R[k][k] > kRankTolerance * norms[k])) return {};
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

// Differences far below or above the error see rounding or curvature instead of the slope.
bool sizesAgree(double a, double b) {
  return a > b / 10 && a < b * 10;
}

}  // namespace

std::optional<Array<double>> linearisedErrors(Session& session, Dialogs& dialogs) {
  const ParameterSet& par = session.par;
  const int N = par.FreeCount;
  Array<double> errors(N);
  for (int i = 1; i <= N; ++i) errors[i] = par.ParDeltas[par.FreeIndex[i]];

  Jacobian jacobian(session, dialogs);
  bool settled = false;
  for (int round = 0; round < kMostRounds && !settled; ++round) {
    std::vector<Column> columns;
    for (int i = 1; i <= N; ++i) {
      columns.push_back(jacobian.derivative(i, stepFor(par.ParValues[par.FreeIndex[i]], errors[i])));
    }
    const std::vector<Column> R = triangleOf(std::move(columns));
    if (R.empty()) return std::nullopt;
    const Column found = inverseRowLengths(R);
    settled = true;
    for (int i = 1; i <= N; ++i) {
      const double error = found[static_cast<std::size_t>(i) - 1];
      settled = settled && sizesAgree(errors[i], error);
      errors[i] = error;
    }
  }
  return errors;
}

}  // namespace vk
