#pragma once

#include <cmath>
#include <limits>
#include <span>

#include "base/Rounding.h"
#include "expr/Opcodes.h"
#include "numeric/Elementary.h"
#include "numeric/ShortPi.h"

/// The arithmetic of operators, elementary functions and list functions: written once, for one point and for
/// columns of points.
///
/// Each of them fails exactly where its result is not finite, if its arguments are finite: no overflow inside
/// them is hidden by a later step. So whoever calls checks the result and nothing else.
namespace vk {

inline bool isFinite(double value) {
  return std::fabs(value) <= std::numeric_limits<double>::max();
}

/// Arc sine; arguments beyond -1 and 1 are clamped, not refused.
inline double arcSine(double x) {
  if (std::fabs(x) >= 1) return sign(x) * kShortPi / 2;
  return elementary::atan(x / std::sqrt(1 - x * x));
}

/// Calls `use` with the function of an operator: double (double x, double y). For opcodes of kind `kOperator`.
template <class Use>
auto withOperator(int opcode, Use&& use) {
  switch (opcode) {
    case kOpPower:
      return use([](double x, double y) { return elementary::pow(x, y); });
    case kOpTimes:
      return use([](double x, double y) { return x * y; });
    case kOpDivide:
      return use([](double x, double y) { return x / y; });
    case kOpPlus:
      return use([](double x, double y) { return x + y; });
    default:
      return use([](double x, double y) { return x - y; });
  }
}

/// The same for functions of one argument: double (double x). For opcodes of kind `kElementary`.
template <class Use>
auto withElementary(int opcode, Use&& use) {
  switch (opcode) {
    case kOpAbs:
      return use([](double x) { return std::fabs(x); });
    case kOpSqr:
      return use([](double x) { return std::sqrt(x); });
    case kOpExp:
      return use([](double x) { return elementary::exp(x); });
    case kOpLog:
      return use([](double x) { return elementary::log(x); });
    case kOpAsin:
      return use([](double x) { return arcSine(x); });
    case kOpAcos:
      return use([](double x) { return kShortPi / 2 - arcSine(x); });
    case kOpAtan:
      return use([](double x) { return elementary::atan(x); });
    case kOpSin:
      return use([](double x) { return elementary::sin(x); });
    case kOpCos:
      return use([](double x) { return elementary::cos(x); });
    case kOpTan:
      return use([](double x) { return elementary::tan(x); });
    // QUIRK: the sign of zero is 1.
    case kOpSgn:
      return use([](double x) { return x < 0 ? -1.0 : 1.0; });
    case kOpInt:
      return use([](double x) { return Int(x); });
    default:
      return use([](double x) { return -x; });
  }
}

/// SUM, AVG and STD of a first argument and the further ones; `count` is the count that the code tells.
inline double listValue(int opcode, double x, std::span<const double> further, int count) {
  double sum = x;
  double squares = x * x;
  for (const double p : further) {
    sum += p;
    squares += p * p;
  }
  if (opcode == kOpSum) return sum;
  const double mean = sum / count;
  if (opcode == kOpAvg) return mean;
  return std::sqrt((squares - count * mean * mean) / (count - 1));
}

}  // namespace vk
