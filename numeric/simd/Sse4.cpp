#include <sleef.h>

#include "numeric/simd/Kernels.h"
#include "numeric/simd/ShortPi.h"

#define VK_KERNELS kSse4
#define VK_BYTES 16
#define VK_VECTOR(function) Sleef_cinz_##function##d2_u10sse4
#define VK_ROOT(x) _mm_sqrt_pd(x)
#include "numeric/simd/Kernels.inc"
