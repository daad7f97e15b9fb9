#pragma once

#include <span>
#include <vector>

namespace vk {

/// A symmetric matrix of N x N numbers; indices from 1, another index is run-time error 9.
class SymmetricMatrix {
 public:
  SymmetricMatrix() = default;
  /// Full of zeros.
  explicit SymmetricMatrix(int count);
  int size() const { return size_; }
  double at(int a, int b) const { return full_[place(a, b)]; }
  void set(int a, int b, double value);

 private:
  std::size_t place(int a, int b) const;
  int size_ = 0;
  std::vector<double> full_;
};

/// Correlations of N parameters, 1 on the diagonal.
class CorrelationMatrix : public SymmetricMatrix {
 public:
  CorrelationMatrix() = default;
  explicit CorrelationMatrix(int count);
};

/// Variances of N parameters on the diagonal, covariances beside it.
class CovarianceMatrix : public SymmetricMatrix {
 public:
  using SymmetricMatrix::SymmetricMatrix;

  /// The standard deviation of parameter i.
  double deviation(int i) const;
  /// The covariances in units of the deviations.
  CorrelationMatrix correlation() const;
  /// The variance of a quantity whose derivatives by the parameters are the gradient, `size()` numbers.
  double variance(std::span<const double> gradient) const;
};

/// The covariances that belong to deviations, 1..N, and correlations.
CovarianceMatrix covarianceOf(std::span<const double> deviations, const CorrelationMatrix& correlation);

}  // namespace vk
