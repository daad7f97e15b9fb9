#pragma once

/// What is computed for each point, in the registers of one instruction set. All sets give the same bits.
///
/// Sources of this folder are compiled for processors that not everybody has. An inline function compiled there
/// might be the one that the linker keeps for the whole program; so there are only plain declarations here.
namespace vk::simd {

using Count = decltype(sizeof 0);

/// One value for each point, or where there is no column one for all.
struct Values {
  const double* column = nullptr;
  double value = 0;
};

/// Of one argument.
enum Function {
  kAbs,
  kSqr,
  kExp,
  kLog,
  kAsin,
  kAcos,
  kAtan,
  kSin,
  kCos,
  kTan,
  kSgn,
  kInt,
  kNegate,
  kFunctionCount
};

/// Of two arguments.
enum Operator { kPower, kTimes, kDivide, kPlus, kMinus, kOperatorCount };

/// What a set computes. Blocks are of `count` points; a result may replace an argument. They give true when all
/// results are finite.
struct Kernels {
  double (*exp)(double x);
  double (*log)(double x);
  double (*sin)(double x);
  double (*cos)(double x);
  double (*tan)(double x);
  double (*atan)(double x);
  double (*pow)(double x, double y);
  bool (*functions[kFunctionCount])(Values x, double* result, Count count);
  bool (*operators[kOperatorCount])(Values x, Values y, double* result, Count count);
};

extern const Kernels kScalar;
#ifdef __x86_64__
extern const Kernels kSse2;
extern const Kernels kSse4;
extern const Kernels kAvx;
extern const Kernels kAvx512;
#endif

}  // namespace vk::simd
