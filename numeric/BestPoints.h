#pragma once

#include <span>
#include <vector>

namespace vk {

/// A point of a search along a direction.
struct TriedPoint {
  double position = 0;  ///< along the direction
  double sum = 0;       ///< of the squares of its residuals
  std::vector<double> X;
  std::vector<double> F;
};

/// The two best points that a search along a direction has seen, the base among them.
class BestPoints {
 public:
  BestPoints() = default;
  BestPoints(int parameters, int residuals);

  /// Forgets all and takes the base, at position 0, as the best point.
  void begin(double sum, std::span<const double> X, std::span<const double> F);
  /// The same where X and F are those of the best point.
  void beginAtBest(double sum);
  /// Keeps the point if it is better than the second best; equal points are ignored.
  void consider(double position, double sum, std::span<const double> X, std::span<const double> F);

  const TriedPoint& best() const { return best_; }
  /// Meaningful only when there is one.
  const TriedPoint& second() const { return second_; }
  bool hasSecond() const { return hasSecond_; }

 private:
  TriedPoint best_, second_;
  bool hasSecond_ = false;
};

}  // namespace vk
