#include <sleef.h>

#include "numeric/simd/Kernels.h"
#include "numeric/simd/ShortPi.h"

#define VK_KERNELS kAvx
#define VK_BYTES 32
#define VK_VECTOR(function) Sleef_cinz_##function##d4_u10avx
#define VK_ROOT(x) _mm256_sqrt_pd(x)
#include "numeric/simd/Kernels.inc"
