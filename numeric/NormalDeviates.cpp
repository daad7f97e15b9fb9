#include "numeric/NormalDeviates.h"

#include <vector>

#include "numeric/CheckedKernels.h"
#include "numeric/Elementary.h"

namespace vk {

PointInCircle drawInCircle(UniformSource& source) {
  double w1 = 0;
  double w2 = 0;
  double s = 1;
  while (!(s < 1)) {
    w1 = static_cast<float>(2 * static_cast<double>(source.next()) - 1);
    w2 = static_cast<float>(2 * static_cast<double>(source.next()) - 1);
    s = w1 * w1 + w2 * w2;
  }
  return {w1, w2, s};
}

bool replaceByFactors(std::span<double> s) {
  const simd::Kernels& kernels = elementary::kernels();
  std::vector<double> logarithms(s.size());
  const simd::Values logarithm{logarithms.data()};
  const bool finite = kernels.functions[simd::kLog]({s.data()}, logarithms.data(), s.size());
  kernels.operators[simd::kTimes]({nullptr, -2}, logarithm, logarithms.data(), s.size());
  kernels.operators[simd::kDivide](logarithm, {s.data()}, s.data(), s.size());
  kernels.functions[simd::kSqr]({s.data()}, s.data(), s.size());
  return finite;
}

Evaluation GaussianDeviate(UniformSource& source, GaussianState& state) {
  if (state.hasStored) {
    state.hasStored = false;
    return {state.stored};
  }
  const auto [w1, w2, s] = drawInCircle(source);
  const Evaluation fac = evaluateChecked([s = s] { return sqrt(-2 * log(CheckedNumber(s)) / s); });
  if (fac.fault != Fault::kNone) return fac;
  state = {true, w1 * fac.value};
  return {w2 * fac.value};
}

}  // namespace vk
