#pragma once

#include <cmath>
#include <cstdint>
#include <limits>
#include <random>
#include <string>
#include <vector>

#include "numeric/Elementary.h"

/// Arguments for the tests of the elementary functions.
namespace vk {

/// A function at one value, in a set of kernels and as everybody calls it, and in blocks.
struct NamedFunction {
  std::string name;
  simd::Function function;
  double (*simd::Kernels::*inSet)(double x);
  double (*single)(double x);
};

inline const std::vector<NamedFunction> kElementary{
    {"exp", simd::kExp, &simd::Kernels::exp, elementary::exp},
    {"log", simd::kLog, &simd::Kernels::log, elementary::log},
    {"sin", simd::kSin, &simd::Kernels::sin, elementary::sin},
    {"cos", simd::kCos, &simd::Kernels::cos, elementary::cos},
    {"tan", simd::kTan, &simd::Kernels::tan, elementary::tan},
    {"atan", simd::kAtan, &simd::Kernels::atan, elementary::atan}};

/// The ends of the range, the places where a function changes its way, and what is no number.
inline std::vector<double> specialValues() {
  using Limits = std::numeric_limits<double>;
  std::vector<double> values;
  for (const double x : {0.0,
                         Limits::denorm_min(),
                         1E-310,
                         Limits::min(),
                         1E-300,
                         1E-20,
                         1E-8,
                         0.25,
                         0.5,
                         0.7853981633974483,
                         1 - Limits::epsilon() / 2,
                         1.0,
                         1 + Limits::epsilon(),
                         1.5707963267948966,
                         2.0,
                         3.0,
                         3.141592653589793,
                         10.0,
                         14.999999999999998,
                         15.0,
                         22.0,
                         23.0,
                         31.4,
                         709.782712893384,
                         709.7827128933841,
                         745.1332191019411,
                         745.1332191019412,
                         1000.0,
                         1E5,
                         9007199254740991.0,
                         9007199254740992.0,
                         1E14,
                         1E15,
                         1E22,
                         1E100,
                         1E300,
                         Limits::max(),
                         Limits::infinity()}) {
    values.push_back(x);
    values.push_back(-x);
  }
  values.push_back(Limits::quiet_NaN());
  return values;
}

/// Arguments drawn without a distribution of the library, so that they are the same everywhere.
class Arguments {
 public:
  double between(double low, double high) {
    return low + (high - low) * (static_cast<double>(bits_() >> 11) * 0x1p-53);
  }
  /// Any finite number, each exponent as often as the others.
  double any() {
    const double fraction = between(1, 2) * (bits_() % 2 == 0 ? 1 : -1);
    return std::ldexp(fraction, static_cast<int>(bits_() % 2098) - 1074);
  }
  /// An argument for the function: a third each where it is used most, all over its range, and any number.
  double of(simd::Function function) {
    const std::uint64_t which = bits_() % 3;
    if (which == 0) return any();
    switch (function) {
      case simd::kExp:
        return which == 1 ? between(-20, 20) : between(-746, 710);
      case simd::kLog:
        return which == 1 ? between(0, 20) : std::fabs(any());
      default:
        return which == 1 ? between(-20, 20) : between(-1E6, 1E6);
    }
  }
  /// Arguments of a power: bases and exponents in use, whole exponents, powers near the ends of the range, any.
  std::pair<double, double> ofPower() {
    switch (bits_() % 4) {
      case 0:
        return {any(), any()};
      case 1:
        return {between(0, 20), between(-20, 20)};
      case 2:
        return {between(-20, 20), static_cast<double>(bits_() % 81) - 40};
      default: {
        const double x = std::fabs(any());
        return {x, between(-1080, 1080) / std::log2(x)};
      }
    }
  }

 private:
  std::mt19937_64 bits_{20260101};
};

}  // namespace vk
