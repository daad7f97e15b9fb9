#pragma once

#include <cmath>
#include <limits>
#include <span>

#include "base/Rounding.h"
#include "expr/Opcodes.h"
#include "numeric/Elementary.h"
#include "numeric/simd/ShortPi.h"

/// The arithmetic of operators, elementary functions and list functions at one point. Blocks of points are computed
/// by the kernels of Elementary.h, which give the same bits.
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

/// The value of an operation of kind `kOperator`.
inline double operatorValue(int opcode, double x, double y) {
  switch (opcode) {
    case kOpPower:
      return elementary::pow(x, y);
    case kOpTimes:
      return x * y;
    case kOpDivide:
      return x / y;
    case kOpPlus:
      return x + y;
    default:
      return x - y;
  }
}

/// The value of an operation of kind `kElementary`.
inline double elementaryValue(int opcode, double x) {
  switch (opcode) {
    case kOpAbs:
      return std::fabs(x);
    case kOpSqr:
      return std::sqrt(x);
    case kOpExp:
      return elementary::exp(x);
    case kOpLog:
      return elementary::log(x);
    case kOpAsin:
      return arcSine(x);
    case kOpAcos:
      return kShortPi / 2 - arcSine(x);
    case kOpAtan:
      return elementary::atan(x);
    case kOpSin:
      return elementary::sin(x);
    case kOpCos:
      return elementary::cos(x);
    case kOpTan:
      return elementary::tan(x);
    // QUIRK: the sign of zero is 1.
    case kOpSgn:
      return x < 0 ? -1.0 : 1.0;
    case kOpInt:
      return Int(x);
    default:
      return -x;
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
