#include "numeric/PackedInverse.h"

#include <algorithm>

namespace vk {

PackedInverse::PackedInverse(int capacity)
    : packed_(place(capacity, 0)), product_(static_cast<std::size_t>(capacity)) {}

std::size_t PackedInverse::place(int a, int b) {
  const auto [low, high] = std::minmax(a, b);
  return static_cast<std::size_t>(high) * (static_cast<std::size_t>(high) + 1) / 2 +
         static_cast<std::size_t>(low);
}

double PackedInverse::at(int a, int b) const {
  return packed_[place(a, b)];
}

void PackedInverse::multiply(std::span<const double> vector, std::span<double> product) const {
  for (int a = 0; a < size_; ++a) {
    double sum = 0;
    for (int b = 0; b < size_; ++b) sum = sum + at(a, b) * vector[static_cast<std::size_t>(b)];
    product[static_cast<std::size_t>(a)] = sum;
  }
}

void PackedInverse::border(std::span<const double> dots) {
  multiply(dots, product_);
  const double* v = product_.data();
  double dot = 0;
  for (int k = 0; k < size_; ++k) dot = dot + dots[static_cast<std::size_t>(k)] * v[k];
  const double b = 1 - dot;
  for (int row = 0; row < size_; ++row) {
    for (int col = 0; col <= row; ++col) element(row, col) += v[row] * v[col] / b;
  }
  for (int col = 0; col < size_; ++col) element(size_, col) = -v[col] / b;
  element(size_, size_) = 1 / b;
  ++size_;
}

void PackedInverse::remove(int r) {
  double* leaving = product_.data();
  for (int k = 0; k < size_; ++k) leaving[k] = at(r, k);
  std::size_t to = 0;
  for (int row = 0; row < size_; ++row) {
    for (int col = 0; col <= row; ++col) {
      if (row == r || col == r) continue;
      packed_[to++] = at(row, col) - leaving[row] * leaving[col] / leaving[r];
    }
  }
  --size_;
}

}  // namespace vk
