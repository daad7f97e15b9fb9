#pragma once

#include <span>
#include <string_view>

#include "numeric/simd/Kernels.h"

/// The elementary functions of everything that the program computes, by SLEEF: the same bits on every machine and with
/// every instruction set, for one value and for many. The error is at most 1 unit in the last place.
///
/// Angles are radians, and logarithms natural. Outside its domain a function is infinite or not a number, as in
/// <cmath>; exp and pow are infinite above 1.79769E308 already, the seventh digit short of the largest double.
namespace vk::elementary {

double exp(double x);
double log(double x);
double sin(double x);
double cos(double x);
double tan(double x);
double atan(double x);

/// x to the y; 0 to the 0 is 1. Exponents -1, 0, 1 and 2 are 1 / x, 1, x and x * x, and a whole power of 10 from
/// 1E-22 to 1E22 is the double next to it.
double pow(double x, double y);

/// The same and plain arithmetic for blocks of points, with the instruction set that is used. Their results have the
/// bits of those of the functions and operators for one value.
const simd::Kernels& kernels();

/// An instruction set that the program can work with.
struct InstructionSet {
  std::string_view name;
  const simd::Kernels* kernels;
};

/// Those that this machine has, the narrowest first.
std::span<const InstructionSet> instructionSets();

/// The one of the name, otherwise the widest; as all give the same bits, a name that is not known or not of this
/// machine does no harm.
const InstructionSet& instructionSetOf(std::string_view name);

/// The one that is used: VOR_SIMD of the environment can name it, as scalar, sse2, sse4, avx or avx512.
const InstructionSet& instructionSet();

}  // namespace vk::elementary
