#include <sleef.h>

#include "numeric/simd/Kernels.h"

#define VK_KERNELS kAvx512
#define VK_BYTES 64
#define VK_VECTOR(function) Sleef_cinz_##function##d8_u10avx512fnofma
#include "numeric/simd/Kernels.inc"
