#pragma once

#include <span>
#include <string_view>

#include "expr/CodeReader.h"
#include "numeric/Fault.h"

namespace vk {

/// Runs the instructions of a code over loaded slots: the definition of what a code computes. The fault is that of
/// the last statement that failed. From finite slots comes a finite value, whatever bytes the code is made of.
Evaluation runInstructions(std::string_view code, std::span<const Instruction> program,
                           std::span<double> slots, EvaluationListener& listener);

}  // namespace vk
