#pragma once

#include <span>

#include "numeric/Fault.h"

namespace vk {

/// The value of an operation of kind `kStatistic` for its first argument and the further ones. Fewer arguments
/// than it takes are a fault.
Evaluation statisticValue(int opcode, double x, std::span<const double> further,
                          EvaluationListener& listener);

}  // namespace vk
