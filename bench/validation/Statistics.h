#pragma once

#include <string>
#include <vector>

namespace vk {

/// A number as `printf` has it.
std::string formatted(const char* format, double value);

double mean(const std::vector<double>& values);
/// Standard deviation of the values.
double width(const std::vector<double>& values);
/// Linear correlation of two columns of the same length.
double correlation(const std::vector<double>& a, const std::vector<double>& b);
/// Part of the values whose magnitude is at most the limit.
double within(const std::vector<double>& values, double limit);
/// The largest distance of the distribution of the values from the uniform one on 0..1, by Kolmogorov.
double distanceFromUniform(std::vector<double> values);

}  // namespace vk
