#include <sleef.h>

#include "numeric/simd/Kernels.h"
#include "numeric/simd/ShortPi.h"

#define VK_KERNELS kAvx512
#define VK_BYTES 64
#define VK_VECTOR(function) Sleef_cinz_##function##d8_u10avx512fnofma
#define VK_ROOT(x) _mm512_maskz_sqrt_pd(0xFF, x)
#include "numeric/simd/Kernels.inc"
