#pragma once

#include <span>
#include <vector>

namespace vk {

/// A point of a search along a direction.
struct TriedPoint {
  double position = 0;  ///< along the direction
  double sum = 0;       ///< of the squares of its residuals
  std::vector<double> X;
  std::span<const double> F;  ///< where the residuals stand
};

/// The two best points that a search along a direction has seen, the base among them. Their residuals stay where they
/// are, and must not be written over.
class BestPoints {
 public:
  /// Forgets all and takes the base, at position 0, as the best point.
  void begin(double sum, std::span<const double> X, std::span<const double> F);
  /// Keeps the point if it is better than the second best; equal points are ignored.
  void consider(double position, double sum, std::span<const double> X, std::span<const double> F);

  const TriedPoint& best() const { return best_; }
  /// Meaningful only when there is one.
  const TriedPoint& second() const { return second_; }
  bool hasSecond() const { return hasSecond_; }
  /// Whether the residuals of one of the points stand there.
  bool keeps(const double* residuals) const {
    return residuals == best_.F.data() || (hasSecond_ && residuals == second_.F.data());
  }

 private:
  TriedPoint best_, second_;
  bool hasSecond_ = false;
};

}  // namespace vk
