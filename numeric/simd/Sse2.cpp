#include <sleef.h>

#include "numeric/simd/Kernels.h"

#define VK_KERNELS kSse2
#define VK_BYTES 16
#define VK_VECTOR(function) Sleef_cinz_##function##d2_u10sse2
#include "numeric/simd/Kernels.inc"
