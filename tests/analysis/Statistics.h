#pragma once

#include <algorithm>
#include <cmath>
#include <vector>

namespace vk {

inline double mean(const std::vector<double>& values) {
  double sum = 0;
  for (const double value : values) sum += value;
  return sum / static_cast<double>(values.size());
}

/// Covariance of two columns of the same length.
inline double covarianceOfColumns(const std::vector<double>& a, const std::vector<double>& b) {
  const double meanA = mean(a), meanB = mean(b);
  double sum = 0;
  for (std::size_t i = 0; i < a.size(); ++i) sum += (a[i] - meanA) * (b[i] - meanB);
  return sum / static_cast<double>(a.size() - 1);
}

/// Standard deviation of the values.
inline double width(const std::vector<double>& values) {
  return std::sqrt(covarianceOfColumns(values, values));
}

/// Linear correlation of two columns of the same length.
inline double correlation(const std::vector<double>& a, const std::vector<double>& b) {
  return covarianceOfColumns(a, b) / (width(a) * width(b));
}

/// Part of the values whose magnitude is at most the limit.
inline double within(const std::vector<double>& values, double limit) {
  const auto count = std::ranges::count_if(values, [&](double value) { return std::abs(value) <= limit; });
  return static_cast<double>(count) / static_cast<double>(values.size());
}

/// The largest distance of the distribution of the values from the uniform one on 0..1, by Kolmogorov and Smirnov.
inline double distanceFromUniform(std::vector<double> values) {
  std::ranges::sort(values);
  const auto count = static_cast<double>(values.size());
  double distance = 0;
  for (std::size_t i = 0; i < values.size(); ++i) {
    const auto below = static_cast<double>(i);
    distance = std::max({distance, values[i] - below / count, (below + 1) / count - values[i]});
  }
  return distance;
}

}  // namespace vk
