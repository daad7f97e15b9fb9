#include <sleef.h>

#include "numeric/simd/Kernels.h"
#include "numeric/simd/ShortPi.h"

// A register of one number, for processors without longer ones.
#define VK_KERNELS kScalar
#define VK_BYTES 8
#define VK_VECTOR(function) [](auto... lane) { return Wide{Sleef_cinz_##function##d1_u10purec(lane[0]...)}; }
#define VK_ROOT(x)         \
  Wide {                   \
    __builtin_sqrt((x)[0]) \
  }
#include "numeric/simd/Kernels.inc"
