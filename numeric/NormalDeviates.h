#pragma once

#include <span>

#include "numeric/Fault.h"

namespace vk {

/// A source of uniform random numbers.
class UniformSource {
 public:
  virtual ~UniformSource() = default;
  /// The next number in [0,1), in single precision.
  virtual float next() = 0;
  /// Takes back the numbers given last, in their order: they come again.
  virtual void giveBack(std::span<const float> numbers) = 0;
};

/// State of the normal-deviate generator: every second value comes from the pair drawn before.
struct GaussianState {
  bool hasStored = false;
  double stored = 0;  ///< the second value of the pair, still to be given
};

/// A point uniform in the unit circle. Its coordinates are singles.
struct PointInCircle {
  double w1, w2;
  double s;  ///< w1^2 + w2^2, below 1
};

/// The first point within, of pairs of numbers that are spread over the square around the circle.
PointInCircle drawInCircle(UniformSource& source);

/// Puts sqrt(-2 ln(s)/s) in the place of each s, in (0,1) all of them, with the bits that `GaussianDeviate` takes.
/// False where one is 0; then nothing of use stands there.
bool replaceByFactors(std::span<double> s);

/// A normal deviate of mean 0 and width 1 by the polar form of the method of Box and Muller: of a point uniform in
/// the unit circle (Marsaglia and Bray, SIAM Review 6 (1964) 260), w sqrt(-2 ln(s)/s) of both coordinates w, s being
/// its squared radius. The coordinates are singles. Fault of the domain in the centre of the circle.
Evaluation GaussianDeviate(UniformSource& source, GaussianState& state);

}  // namespace vk
