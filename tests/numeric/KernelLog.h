#pragma once

#include <vector>

#include "numeric/Fault.h"

namespace vk {

/// Keeps which kernels were exhausted.
struct KernelLog : EvaluationListener {
  std::vector<Kernel> kernels;
  void exhausted(Kernel kernel) override { kernels.push_back(kernel); }
};

}  // namespace vk
