#pragma once

#include <algorithm>
#include <cmath>
#include <limits>

#include "base/CheckedMath.h"

namespace vk {

/// True for a range of the user's coordinates that single precision cannot resolve: it is narrow beside its
/// own values, such as ten minutes of a clock that counts seconds, or beyond the exponents of singles.
inline bool needsDoubles(double from, double to) {
  constexpr double kNarrow = 1E-4, kSmallest = 1E-36, kLargest = 1E36;
  const double range = std::abs(to - from);
  const double largest = std::max(std::abs(from), std::abs(to));
  return range < kNarrow * largest || range < kSmallest || largest > kLargest;
}

/// The nearest single, at most the largest one.
inline float clampedSingle(double value) {
  constexpr auto kMost = static_cast<double>(std::numeric_limits<float>::max());
  return static_cast<float>(std::clamp(value, -kMost, kMost));
}

/// A mapping of Usr to Log in double precision. It counts as long as the single precision fields beside it
/// are those that it was made with: an application may write them and has the last word.
class NarrowMapping {
 public:
  /// None.
  NarrowMapping() = default;
  /// Log `log` is Usr `usr`, and `scale` the Log units per Usr unit.
  NarrowMapping(double log, double usr, double scale, float edgeField, float scaleField)
      : log_(log), usr_(usr), scale_(scale), edgeField_(edgeField), scaleField_(scaleField) {}

  bool counts(float edge, float scale) const {
    return scale_ != 0 && edge == edgeField_ && scale == scaleField_;
  }
  double toLog(double usr) const { return log_ + (usr - usr_) * scale_; }
  double toUsr(double log) const { return usr_ + checked::divide(log - log_, scale_); }

 private:
  double log_ = 0, usr_ = 0, scale_ = 0;
  float edgeField_ = 0, scaleField_ = 0;
};

}  // namespace vk
