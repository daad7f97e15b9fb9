#include "numeric/DirectionSet.h"

#include <algorithm>

namespace vk {

double dot(std::span<const double> a, std::span<const double> b) {
  double sum = 0;
  for (std::size_t i = 0; i < a.size(); ++i) sum = sum + a[i] * b[i];
  return sum;
}

DirectionSet::DirectionSet(int parameters, int residuals)
    : inverse_(parameters), dots_(static_cast<std::size_t>(parameters)) {
  // One place more than directions, so that `next` has one when the set is full.
  directions_.assign(static_cast<std::size_t>(parameters) + 1,
                     {std::vector<double>(static_cast<std::size_t>(parameters)),
                      std::vector<double>(static_cast<std::size_t>(residuals))});
}

void DirectionSet::add() {
  project(next().change, dots_);
  inverse_.border(dots_);
}

void DirectionSet::remove(int r) {
  const auto first = directions_.begin() + r;
  std::rotate(first, first + 1, directions_.begin() + size());
  inverse_.remove(r);
}

void DirectionSet::project(std::span<const double> residuals, std::span<double> dots) const {
  for (int k = 0; k < size(); ++k) dots[static_cast<std::size_t>(k)] = dot((*this)[k].change, residuals);
}

void DirectionSet::solve(std::span<const double> dots, std::span<double> coefficients) const {
  inverse_.multiply(dots, coefficients);
}

void DirectionSet::combine(std::span<const double> coefficients, std::span<double> step) const {
  for (std::size_t i = 0; i < step.size(); ++i) {
    double sum = 0;
    for (int k = 0; k < size(); ++k) {
      sum = sum + coefficients[static_cast<std::size_t>(k)] * (*this)[k].displacement[i];
    }
    step[i] = sum;
  }
}

double DirectionSet::covariance(int a, int b) const {
  double sum = 0;
  for (int k = 0; k < size(); ++k) {
    const std::vector<double>& d = (*this)[k].displacement;
    sum = sum + d[static_cast<std::size_t>(a)] * d[static_cast<std::size_t>(b)];
  }
  return sum;
}

}  // namespace vk
