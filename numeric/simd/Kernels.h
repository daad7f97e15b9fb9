#pragma once

/// The elementary functions in the registers of one instruction set. All sets give the same bits.
///
/// Sources of this folder are compiled for processors that not everybody has. An inline function compiled there
/// might be the one that the linker keeps for the whole program; so there are only plain declarations here.
namespace vk::simd {

using Count = decltype(sizeof 0);

enum Function { kExp, kLog, kSin, kCos, kTan, kAtan, kFunctionCount };

/// Values one after the other (step 1), or one value for all points (step 0).
struct Values {
  const double* first;
  Count step;
};

/// What a set computes. Blocks are of `count` points; a result may replace its argument. They give true when all
/// results are finite.
struct Kernels {
  double (*single[kFunctionCount])(double x);
  bool (*block[kFunctionCount])(const double* x, double* result, Count count);
  double (*power)(double x, double y);
  bool (*powers)(Values x, Values y, double* result, Count count);
};

extern const Kernels kScalar;
#ifdef __x86_64__
extern const Kernels kSse2;
extern const Kernels kSse4;
extern const Kernels kAvx;
extern const Kernels kAvx512;
#endif

}  // namespace vk::simd
