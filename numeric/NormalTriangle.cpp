#include "numeric/NormalTriangle.h"

#include <cmath>

#include "numeric/DirectionSet.h"

namespace vk {
namespace {

using Column = NormalTriangle::Column;

// Takes out of a column what it has of a unit column, and gives that.
double takeOut(const Column& unit, Column& column) {
  const double part = dot(unit, column);
  for (std::size_t j = 0; j < column.size(); ++j) column[j] -= part * unit[j];
  return part;
}

}  // namespace

std::optional<NormalTriangle> NormalTriangle::of(std::vector<Column> columns, Column F, double tolerance) {
  const std::size_t n = columns.size();
  std::vector<double> lengths;
  for (const Column& column : columns) lengths.push_back(std::sqrt(dot(column, column)));
  NormalTriangle result;
  std::vector<Column>& R = result.rows_;
  R.assign(n, Column(n));
  for (std::size_t k = 0; k < n; ++k) {
    R[k][k] = std::sqrt(dot(columns[k], columns[k]));
    if (!(R[k][k] > tolerance * lengths[k])) return std::nullopt;
    for (double& value : columns[k]) value /= R[k][k];
    for (std::size_t l = k + 1; l < n; ++l) R[k][l] = takeOut(columns[k], columns[l]);
    result.dots_.push_back(takeOut(columns[k], F));
  }
  const CovarianceMatrix covariance = result.covariance();
  for (int i = 1; i <= covariance.size(); ++i) {
    if (!std::isfinite(covariance.at(i, i))) return std::nullopt;
  }
  return result;
}

NormalTriangle::Column NormalTriangle::step() const {
  Column s(dots_.size());
  for (std::size_t k = s.size(); k-- > 0;) {
    double sum = -dots_[k];
    for (std::size_t l = k + 1; l < s.size(); ++l) sum -= rows_[k][l] * s[l];
    s[k] = sum / rows_[k][k];
  }
  return s;
}

double NormalTriangle::effect() const {
  return std::sqrt(dot(dots_, dots_));
}

// Rows of the inverse of R, times one another.
CovarianceMatrix NormalTriangle::covariance() const {
  const std::size_t n = rows_.size();
  std::vector<Column> inverse(n, Column(n));
  for (std::size_t c = 0; c < n; ++c) {
    for (std::size_t row = c + 1; row-- > 0;) {
      double sum = row == c ? 1 : 0;
      for (std::size_t k = row + 1; k <= c; ++k) sum -= rows_[row][k] * inverse[k][c];
      inverse[row][c] = sum / rows_[row][row];
    }
  }
  CovarianceMatrix result(static_cast<int>(n));
  for (std::size_t a = 0; a < n; ++a) {
    for (std::size_t b = 0; b <= a; ++b)
      result.set(static_cast<int>(a) + 1, static_cast<int>(b) + 1, dot(inverse[a], inverse[b]));
  }
  return result;
}

}  // namespace vk
