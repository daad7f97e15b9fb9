#pragma once

#include <span>
#include <vector>

namespace vk {

/// The inverse of a growing and shrinking symmetric matrix of dot products, as a packed lower triangle by
/// rows. Rows count from 0. Nothing is checked for singularity: a vector that depends on the others leaves
/// elements that are not finite.
class PackedInverse {
 public:
  PackedInverse() = default;
  /// Empty, with room for `capacity` rows.
  explicit PackedInverse(int capacity);

  int size() const { return size_; }
  void clear() { size_ = 0; }

  /// Adds a unit vector whose dot products with the present ones are `dots`.
  void border(std::span<const double> dots);
  /// Takes vector r out; the later ones move down.
  void remove(int r);
  /// The inverse times `vector`.
  void multiply(std::span<const double> vector, std::span<double> product) const;

  double at(int a, int b) const;

 private:
  double& element(int a, int b) { return packed_[place(a, b)]; }
  static std::size_t place(int a, int b);

  std::vector<double> packed_;
  std::vector<double> product_;  // of a bordering; the row that a removal takes out
  int size_ = 0;
};

}  // namespace vk
