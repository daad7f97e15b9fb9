#pragma once

#include "base/RuntimeError.h"
#include "numeric/NormalDeviates.h"
#include "platform/Random.h"

namespace vk {

/// The uniform generator of the program as the source of the numerics.
class RandomSource : public UniformSource {
 public:
  explicit RandomSource(Random& random) : random_(random) {}
  float next() override { return random_.next(); }

 private:
  Random& random_;
};

/// A normal deviate; run-time error 5 where there is none.
inline double normalDeviate(Random& random, GaussianState& state) {
  RandomSource source(random);
  const Evaluation deviate = GaussianDeviate(source, state);
  if (deviate.fault != Fault::kNone) throw RuntimeError(kInvalidCall);
  return deviate.value;
}

}  // namespace vk
