#include <sleef.h>

#include "numeric/simd/Kernels.h"

#define VK_KERNELS kAvx
#define VK_BYTES 32
#define VK_VECTOR(function) Sleef_cinz_##function##d4_u10avx
#include "numeric/simd/Kernels.inc"
