#pragma once

#include "base/RuntimeError.h"
#include "numeric/NormalDeviates.h"

namespace vk {

/// A normal deviate for code that runs under a guard: run-time error 5 where there is none.
inline double normalDeviate(UniformSource& source, GaussianState& state) {
  const Evaluation deviate = GaussianDeviate(source, state);
  if (deviate.fault != Fault::kNone) throw RuntimeError(kInvalidCall);
  return deviate.value;
}

}  // namespace vk
