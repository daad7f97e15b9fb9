#pragma once

#include <mpfr.h>

#include <cstddef>

namespace vk {

/// A number of 200 bits, which is the truth beside one of 53.
class Precise {
 public:
  Precise(double x = 0) : Precise(nullptr) { mpfr_set_d(value_, x, MPFR_RNDN); }
  Precise(const Precise& other) : Precise(nullptr) { mpfr_set(value_, other.value_, MPFR_RNDN); }
  Precise& operator=(const Precise& other) {
    mpfr_set(value_, other.value_, MPFR_RNDN);
    return *this;
  }
  ~Precise() { mpfr_clear(value_); }

  double toDouble() const { return mpfr_get_d(value_, MPFR_RNDN); }
  bool operator<(const Precise& other) const { return mpfr_less_p(value_, other.value_) != 0; }

  using Function1 = int(mpfr_t, mpfr_srcptr, mpfr_rnd_t);
  using Function2 = int(mpfr_t, mpfr_srcptr, mpfr_srcptr, mpfr_rnd_t);

  /// The value of a function of the library.
  static Precise of(Function1* function, const Precise& x) {
    Precise result(nullptr);
    function(result.value_, x.value_, MPFR_RNDN);
    return result;
  }
  static Precise of(Function2* function, const Precise& x, const Precise& y) {
    Precise result(nullptr);
    function(result.value_, x.value_, y.value_, MPFR_RNDN);
    return result;
  }
  static Precise pi() {
    Precise result(nullptr);
    mpfr_const_pi(result.value_, MPFR_RNDN);
    return result;
  }

 private:
  explicit Precise(std::nullptr_t) { mpfr_init2(value_, 200); }

  mpfr_t value_;
};

inline Precise operator+(const Precise& a, const Precise& b) {
  return Precise::of(mpfr_add, a, b);
}
inline Precise operator-(const Precise& a, const Precise& b) {
  return Precise::of(mpfr_sub, a, b);
}
inline Precise operator*(const Precise& a, const Precise& b) {
  return Precise::of(mpfr_mul, a, b);
}
inline Precise operator/(const Precise& a, const Precise& b) {
  return Precise::of(mpfr_div, a, b);
}

inline Precise abs(const Precise& x) {
  return Precise::of(mpfr_abs, x);
}
inline Precise sqrt(const Precise& x) {
  return Precise::of(mpfr_sqrt, x);
}
inline Precise exp(const Precise& x) {
  return Precise::of(mpfr_exp, x);
}
inline Precise log(const Precise& x) {
  return Precise::of(mpfr_log, x);
}
inline Precise lnGamma(const Precise& x) {
  return Precise::of(mpfr_lngamma, x);
}
inline Precise erfc(const Precise& x) {
  return Precise::of(mpfr_erfc, x);
}

/// Regularised incomplete functions: P(a,x) and I_x(a,b), to 45 digits.
Precise lowerGamma(const Precise& a, const Precise& x);
Precise upperGamma(const Precise& a, const Precise& x);
Precise incompleteBeta(const Precise& a, const Precise& b, const Precise& x);

}  // namespace vk
