#include "bench/validation/Statistics.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdio>

namespace vk {
namespace {

double covariance(const std::vector<double>& a, const std::vector<double>& b) {
  const double meanA = mean(a), meanB = mean(b);
  double sum = 0;
  for (std::size_t i = 0; i < a.size(); ++i) sum += (a[i] - meanA) * (b[i] - meanB);
  return sum / static_cast<double>(a.size() - 1);
}

}  // namespace

std::string formatted(const char* format, double value) {
  std::array<char, 32> digits{};
  std::string text{digits.data(),
                   static_cast<std::size_t>(std::snprintf(digits.data(), digits.size(), format, value))};
  // A zero has no sign.
  return text.find_first_not_of("-0.") == std::string::npos && text[0] == '-' ? text.substr(1) : text;
}

double mean(const std::vector<double>& values) {
  double sum = 0;
  for (const double value : values) sum += value;
  return sum / static_cast<double>(values.size());
}

double width(const std::vector<double>& values) {
  return std::sqrt(covariance(values, values));
}

double correlation(const std::vector<double>& a, const std::vector<double>& b) {
  return covariance(a, b) / (width(a) * width(b));
}

double within(const std::vector<double>& values, double limit) {
  const auto count = std::ranges::count_if(values, [&](double value) { return std::abs(value) <= limit; });
  return static_cast<double>(count) / static_cast<double>(values.size());
}

double distanceFromUniform(std::vector<double> values) {
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
