#pragma once

#include <compare>

#include "base/CheckedMath.h"
#include "numeric/Elementary.h"

namespace vk {

/// A double whose arithmetic fails where the platform's would, at every intermediate: an infinite or undefined
/// result is run-time error 6, a zero divisor 11. For kernels that must not lose an overflow which a later
/// operation would hide (1 / infinity, exp(-infinity)).
class CheckedNumber {
 public:
  constexpr CheckedNumber(double value) : value_(value) {}  // NOLINT: formulas mix it with literals

  constexpr double value() const { return value_; }

  friend CheckedNumber operator+(CheckedNumber a, CheckedNumber b) {
    return checked::finite(a.value_ + b.value_);
  }
  friend CheckedNumber operator-(CheckedNumber a, CheckedNumber b) {
    return checked::finite(a.value_ - b.value_);
  }
  friend CheckedNumber operator*(CheckedNumber a, CheckedNumber b) {
    return checked::finite(a.value_ * b.value_);
  }
  friend CheckedNumber operator/(CheckedNumber a, CheckedNumber b) {
    return checked::divide(a.value_, b.value_);
  }
  CheckedNumber operator-() const { return -value_; }

  friend constexpr auto operator<=>(CheckedNumber, CheckedNumber) = default;

 private:
  double value_;
};

inline CheckedNumber log(CheckedNumber x) {
  if (!(x > 0)) throw RuntimeError(kInvalidCall);
  return checked::finite(elementary::log(x.value()));
}
inline CheckedNumber exp(CheckedNumber x) {
  return checked::finite(elementary::exp(x.value()));
}
inline CheckedNumber sqrt(CheckedNumber x) {
  return checked::sqrt(x.value());
}
inline CheckedNumber abs(CheckedNumber x) {
  return std::fabs(x.value());
}

}  // namespace vk
