#include "numeric/NormalDeviates.h"

#include "numeric/CheckedKernels.h"

namespace vk {

Evaluation GaussianDeviate(UniformSource& source, GaussianState& state) {
  if (state.hasStored) {
    state.hasStored = false;
    return {state.stored};
  }
  double w1 = 0;
  double w2 = 0;
  double s = 1;
  while (!(s < 1)) {
    w1 = static_cast<float>(2 * static_cast<double>(source.next()) - 1);
    w2 = static_cast<float>(2 * static_cast<double>(source.next()) - 1);
    s = w1 * w1 + w2 * w2;
  }
  const Evaluation fac = evaluateChecked([&] { return sqrt(-2 * log(CheckedNumber(s)) / s); });
  if (fac.fault != Fault::kNone) return fac;
  state = {true, w1 * fac.value};
  return {w2 * fac.value};
}

}  // namespace vk
