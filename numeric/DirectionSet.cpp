#include "numeric/DirectionSet.h"

#include <algorithm>
#include <array>

namespace vk {
namespace {

/// Dot products of several changes with one vector, in a single walk: each is added up in its own order, but
/// none has to wait for the last sum of another.
template <std::size_t Count>
void dotTogether(const Direction* directions, std::span<const double> b, double* dots) {
  std::array<const double*, Count> a;
  for (std::size_t k = 0; k < Count; ++k) a[k] = directions[k].change.data();
  std::array<double, Count> sums{};
  for (std::size_t i = 0; i < b.size(); ++i) {
    for (std::size_t k = 0; k < Count; ++k) sums[k] = sums[k] + a[k][i] * b[i];
  }
  std::ranges::copy(sums, dots);
}

}  // namespace

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
  const std::size_t count = static_cast<std::size_t>(size());
  std::size_t k = 0;
  for (; count - k >= 4; k += 4) dotTogether<4>(&directions_[k], residuals, &dots[k]);
  if (count - k == 3) dotTogether<3>(&directions_[k], residuals, &dots[k]);
  if (count - k == 2) dotTogether<2>(&directions_[k], residuals, &dots[k]);
  if (count - k == 1) dotTogether<1>(&directions_[k], residuals, &dots[k]);
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
