#pragma once

#include "numeric/CheckedNumber.h"
#include "numeric/Fault.h"

namespace vk {

/// The special functions in checked arithmetic, for formulas that are made of them: what leaves the range is a
/// run-time error, what has another fault gives a value and keeps the fault. The public forms stand in
/// SpecialFunctions.h.
class CheckedKernels {
 public:
  explicit CheckedKernels(EvaluationListener& listener) : listener_(listener) {}

  static CheckedNumber lnGamma(CheckedNumber x);
  static CheckedNumber complementaryError(CheckedNumber x);
  static CheckedNumber fullUpperGamma(CheckedNumber a, CheckedNumber x);
  CheckedNumber betaFraction(CheckedNumber a, CheckedNumber b, CheckedNumber x);
  CheckedNumber incompleteBeta(CheckedNumber a, CheckedNumber b, CheckedNumber x);
  CheckedNumber gammaSeries(CheckedNumber a, CheckedNumber x);
  CheckedNumber gammaFraction(CheckedNumber a, CheckedNumber x);
  CheckedNumber upperGamma(CheckedNumber a, CheckedNumber x);

  /// The fault of the last kernel that had one.
  Fault fault() const { return fault_; }

 private:
  void exhausted(Kernel kernel);
  CheckedNumber outsideDomain();

  EvaluationListener& listener_;
  Fault fault_ = Fault::kNone;
};

/// The value of `formula(kernels)` with its fault; a run-time error in it is a fault of the domain, with value 0.
template <class Formula>
Evaluation evaluateChecked(EvaluationListener& listener, Formula formula) {
  CheckedKernels kernels(listener);
  try {
    const CheckedNumber value = formula(kernels);
    return {value.value(), kernels.fault()};
  } catch (const RuntimeError&) {
    return {0, Fault::kDomain};
  }
}

/// The same for formulas without a kernel that can be exhausted.
template <class Formula>
Evaluation evaluateChecked(Formula formula) {
  NoListener nobody;
  return evaluateChecked(nobody, [&](CheckedKernels&) { return CheckedNumber(formula()); });
}

}  // namespace vk
