#pragma once

#include <vector>

#include "numeric/Fault.h"

namespace vk {

/// How near the kernels come to their true values: they stop at a relative change of 3E-7, and most are better.
inline constexpr double kKernelAccuracy = 3e-7;

/// Keeps which kernels were exhausted.
struct KernelLog : EvaluationListener {
  std::vector<Kernel> kernels;
  void exhausted(Kernel kernel) override { kernels.push_back(kernel); }
};

}  // namespace vk
