#pragma once

#include <cmath>

#include "base/RuntimeError.h"

/// Arithmetic that fails where the platform's would: each result is finite, or a run-time error is raised.
/// For code that runs under a guard, or whose failures reach the caller.
namespace vk::checked {

/// The value itself; not a number or infinite is run-time error 6.
inline double finite(double value) {
  if (!std::isfinite(value)) throw RuntimeError(kOverflow);
  return value;
}

/// a / b; b = 0 is run-time error 11, also for a = 0.
inline double divide(double a, double b) {
  if (b == 0) throw RuntimeError(kDivisionByZero);
  return finite(a / b);
}

/// Natural logarithm; x <= 0 is run-time error 5.
inline double log(double x) {
  if (!(x > 0)) throw RuntimeError(kInvalidCall);
  return finite(std::log(x));
}

/// Decimal logarithm; x <= 0 is run-time error 5.
inline double log10(double x) {
  if (!(x > 0)) throw RuntimeError(kInvalidCall);
  return finite(std::log10(x));
}

/// Square root; x < 0 is run-time error 5.
inline double sqrt(double x) {
  if (x < 0) throw RuntimeError(kInvalidCall);
  return finite(std::sqrt(x));
}

}  // namespace vk::checked
