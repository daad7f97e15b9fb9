#pragma once

#include <span>
#include <vector>

namespace vk {

/// A symmetric matrix of N x N numbers; indices from 1, another index is run-time error 9.
class SymmetricMatrix {
 public:
  SymmetricMatrix() = default;
  /// Full of zeros; `count`, from 0 on, is N.
  explicit SymmetricMatrix(int count);
  int size() const { return size_; }
  double at(int a, int b) const { return full_[place(a, b)]; }
  /// Element (a, b), and with it (b, a).
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

  /// The standard deviation of parameter i: the root of its variance.
  double deviation(int i) const;
  /// The covariances in units of the deviations; not a number for parameters whose variance is 0.
  CorrelationMatrix correlation() const;
  /// The variance g'Cg of a quantity whose derivatives g by the parameters are the gradient, `size()` numbers.
  double variance(std::span<const double> gradient) const;
};

/// The covariances that belong to the deviations of N parameters, N numbers, and their correlations.
CovarianceMatrix covarianceOf(std::span<const double> deviations, const CorrelationMatrix& correlation);

}  // namespace vk
