#include "data/foreign/Points.h"

#include <algorithm>
#include <array>
#include <cmath>

#include "data/foreign/Refusal.h"

namespace vk {
namespace {

constexpr std::size_t kLeastPoints = 2;
constexpr std::size_t kMostPoints = 32767;

double errorOf(double y, const ErrorRule& rule) {
  switch (rule.kind) {
    case ErrorRule::Kind::kPercent:
      return std::abs(y) * rule.value / 100;
    case ErrorRule::Kind::kRoot:
      if (y < 0) throw Refusal("--dy sqrt: ci sono y negativi");
      return std::sqrt(y);
    case ErrorRule::Kind::kValue:
      break;
  }
  return rule.value;
}

std::array<std::vector<double>*, 4> columnsOf(PointColumns& points) {
  return {&points.x, &points.y, &points.dx, &points.dy};
}

/// Replaces each n values by what `joined` makes of them and their number.
template <class Joined>
void join(std::vector<double>& values, std::size_t n, Joined joined) {
  std::size_t kept = 0;
  for (std::size_t i = 0; i < values.size(); i += n) {
    const std::size_t count = std::min(n, values.size() - i);
    values[kept++] = joined(&values[i], count);
  }
  values.resize(kept);
}

double mean(const double* values, std::size_t count) {
  double sum = 0;
  for (std::size_t i = 0; i < count; ++i) sum += values[i] / static_cast<double>(count);
  return sum;
}

double errorOfMean(const double* errors, std::size_t count) {
  double size = 0;
  for (std::size_t i = 0; i < count; ++i) size = std::hypot(size, errors[i]);
  return size / static_cast<double>(count);
}

void checkCount(std::size_t count) {
  if (count < kLeastPoints) throw Refusal(kTooFewPoints);
  if (count <= kMostPoints) return;
  const std::string least = std::to_string((count + kMostPoints - 1) / kMostPoints);
  throw Refusal(std::to_string(count) + " punti, piu` di 32767: --every " + least + " ne tiene uno ogni " +
                least + ", --average " + least + " la media di ogni " + least);
}

void copy(const std::vector<double>& from, Array<double>& to) {
  for (std::size_t i = 0; i < from.size(); ++i) to[static_cast<int>(i) + 1] = from[i];
}

}  // namespace

void setErrors(PointColumns& points, const ErrorRule& rule) {
  points.dy.resize(points.y.size());
  std::transform(points.y.begin(), points.y.end(), points.dy.begin(),
                 [&](double y) { return errorOf(y, rule); });
}

void keepEvery(PointColumns& points, std::size_t n) {
  for (auto* column : columnsOf(points))
    join(*column, n, [](const double* values, std::size_t) { return *values; });
}

void average(PointColumns& points, std::size_t n) {
  join(points.x, n, mean);
  join(points.y, n, mean);
  join(points.dx, n, errorOfMean);
  join(points.dy, n, errorOfMean);
}

PointColumns pointsOf(const DataSet& data) {
  const auto column = [&](const Array<double>& values) {
    const auto points = values.span(1, data.NumPnt);
    return std::vector<double>(points.begin(), points.end());
  };
  const bool hasXErrors = data.kXpntErr != kFalse;
  return {column(data.Xpnt), column(data.Ypnt), hasXErrors ? column(data.ErrXpnt) : std::vector<double>(),
          column(data.ErrYpnt)};
}

DataSet dataSetOf(const PointColumns& points) {
  checkCount(points.x.size());
  DataSet data;
  data.allocate(static_cast<int>(points.x.size()), toFlag(!points.dx.empty()));
  copy(points.x, data.Xpnt);
  copy(points.y, data.Ypnt);
  copy(points.dx, data.ErrXpnt);
  copy(points.dy.empty() ? std::vector<double>(points.x.size(), 1) : points.dy, data.ErrYpnt);
  return data;
}

}  // namespace vk
