#include "numeric/CovarianceMatrix.h"

#include <cmath>

#include "base/RuntimeError.h"

namespace vk {

SymmetricMatrix::SymmetricMatrix(int count)
    : size_(count), full_(static_cast<std::size_t>(count) * static_cast<std::size_t>(count)) {}

std::size_t SymmetricMatrix::place(int a, int b) const {
  if (a < 1 || a > size_ || b < 1 || b > size_) throw RuntimeError(kIndexOutOfRange);
  return static_cast<std::size_t>((a - 1) * size_ + b - 1);
}

void SymmetricMatrix::set(int a, int b, double value) {
  full_[place(a, b)] = value;
  full_[place(b, a)] = value;
}

CorrelationMatrix::CorrelationMatrix(int count) : SymmetricMatrix(count) {
  for (int i = 1; i <= count; ++i) set(i, i, 1);
}

double CovarianceMatrix::deviation(int i) const {
  return std::sqrt(at(i, i));
}

CorrelationMatrix CovarianceMatrix::correlation() const {
  CorrelationMatrix result(size());
  for (int a = 2; a <= size(); ++a) {
    for (int b = 1; b < a; ++b) result.set(a, b, at(a, b) / deviation(a) / deviation(b));
  }
  return result;
}

double CovarianceMatrix::variance(std::span<const double> gradient) const {
  double sum = 0;
  for (int a = 1; a <= size(); ++a) {
    for (int b = 1; b <= size(); ++b)
      sum += gradient[static_cast<std::size_t>(a) - 1] * at(a, b) * gradient[static_cast<std::size_t>(b) - 1];
  }
  return sum;
}

CovarianceMatrix covarianceOf(std::span<const double> deviations, const CorrelationMatrix& correlation) {
  CovarianceMatrix result(correlation.size());
  for (int a = 1; a <= result.size(); ++a) {
    for (int b = 1; b <= a; ++b) {
      const double product =
          deviations[static_cast<std::size_t>(a) - 1] * deviations[static_cast<std::size_t>(b) - 1];
      result.set(a, b, correlation.at(a, b) * product);
    }
  }
  return result;
}

}  // namespace vk
