#pragma once

#include <span>
#include <vector>

#include "numeric/PackedInverse.h"

namespace vk {

/// A search direction: a displacement of the parameters and the change of the residuals that goes with it,
/// scaled so that the change has length 1.
struct Direction {
  std::vector<double> displacement;
  std::vector<double> change;
};

/// The search directions of a minimisation, with the inverse of the matrix of the dot products of their
/// changes kept up to date. Directions count from 0.
class DirectionSet {
 public:
  DirectionSet() = default;
  /// Empty, with room for as many directions as parameters.
  DirectionSet(int parameters, int residuals);

  int size() const { return inverse_.size(); }
  const Direction& operator[](int k) const { return directions_[static_cast<std::size_t>(k)]; }

  void clear() { inverse_.clear(); }
  /// The place behind the last direction, to be filled before `add`.
  Direction& next() { return directions_[static_cast<std::size_t>(size())]; }
  /// Makes what stands in `next` the last direction.
  void add();
  /// Takes direction r out; the later ones move down, and its place becomes `next`.
  void remove(int r);

  /// Dot products of the changes with a vector of residuals, each as `dot` gives it.
  void project(std::span<const double> residuals, std::span<double> dots) const;
  /// The inverse times the dots: the coefficients of the linearised least-squares step, but for their sign.
  void solve(std::span<const double> dots, std::span<double> coefficients) const;
  /// Sum of the displacements times the coefficients.
  void combine(std::span<const double> coefficients, std::span<double> step) const;
  /// Sum over the directions of displacement a times displacement b.
  double covariance(int a, int b) const;

 private:
  std::vector<Direction> directions_;
  PackedInverse inverse_;
  std::vector<double> dots_;
};

/// Sum of the products, from the first to the last in one accumulator.
double dot(std::span<const double> a, std::span<const double> b);

}  // namespace vk
