#pragma once

#include <array>
#include <cmath>
#include <limits>

#include "base/Array.h"
#include "expr/PlainOperations.h"

/// The composite functions f[g(x)] of the catalogue by plain arithmetic: written once, for one point and for
/// columns of points. Each is one statement; it failed where its result is not finite.
namespace vk {

inline constexpr double kFailed = std::numeric_limits<double>::quiet_NaN();

/// Inner functions up to this one have a formula here; the others run as compiled code.
inline constexpr int kLastPlainInner = 5;

inline bool isPlainInner(int index) {
  return index >= 1 && index <= kLastPlainInner;
}

/// A table entry, or `kFailed` where the table has none: the statement that reads it fails.
inline double entryOf(const Array<double>& table, int index) {
  return index >= 0 && index <= table.upper() ? table[index] : kFailed;
}

/// Calls `use` with inner function 1..5: double (double x).
template <class Use>
auto withInner(int inner, const Array<double>& parameters, Use&& use) {
  const double p1 = entryOf(parameters, 1);
  const double p2 = entryOf(parameters, 2);
  const double p3 = entryOf(parameters, 3);
  switch (inner) {
    case 1:
      return use([=](double) { return p1; });
    case 2:
      return use([=](double x) { return x * p1 + p2; });
    case 3:
      return use([=](double x) { return x * x * p1 + x * p2 + p3; });
    case 4:
      return use([=](double x) { return ((x - p1) * (x - p1) + p2) / p3; });
    default:
      return use([=](double x) {
        const double difference = x * x - p2 * p2;
        const double divisor = difference * difference + x * x * (p3 * p3);
        // An infinite divisor would hide behind the quotient 0.
        return isFinite(divisor) ? p1 / divisor : kFailed;
      });
  }
}

/// Calls `use` with the outer function: double (double x, double u).
template <class Use>
auto withOuter(int outer, const Array<double>& parameters, Use&& use) {
  const int k = parameters.upper();
  const double last = entryOf(parameters, k);
  const double lastButOne = entryOf(parameters, k - 1);
  switch (outer) {
    case 2:
      return use([](double, double u) { return u * u; });
    case 3:
      return use([](double, double u) { return 1 / u; });
    // QUIRK: roots and logarithms of |u|, where the same function as a text has none of |u|.
    case 4:
      return use([](double, double u) { return std::sqrt(std::fabs(u)); });
    case 5:
      return use([=](double x, double u) { return (x + last) / u; });
    case 6:
      return use([=](double, double u) { return last * elementary::log(std::fabs(u)); });
    case 7:
      return use([=](double, double u) { return last * elementary::exp(u); });
    case 8:
      return use([=](double, double u) { return last * elementary::sin(u); });
    case 9:
      return use([=](double x, double u) {
        const double exponent = -last * x;
        // exp(-infinity) would hide the overflow.
        return isFinite(exponent) ? lastButOne * elementary::exp(exponent) * elementary::sin(u) : kFailed;
      });
    default:
      return use([](double, double u) { return u; });
  }
}

}  // namespace vk
