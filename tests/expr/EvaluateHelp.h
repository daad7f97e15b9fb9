#pragma once

#include <string>
#include <vector>

#include "expr/CompileHelp.h"
#include "expr/Formula.h"
#include "tests/numeric/KernelLog.h"

namespace vk {

/// An evaluation in which a statement failed: the value that is left.
inline Evaluation failing(double value) {
  return {value, Fault::kDomain};
}

void PrintTo(const Evaluation& evaluation, std::ostream* out);

/// Compiles an expression of the named variables and evaluates it at their values. So many kernels are expected to
/// be exhausted.
Evaluation evaluated(const std::string& expression, const std::string& names = "",
                     const std::vector<double>& values = {}, std::size_t exhausted = 0);

/// The value alone; a fault fails the test.
double valueOf(const std::string& expression, const std::string& names = "",
               const std::vector<double>& values = {});

/// Runs bytes over slots; the slots are left as the run leaves them.
Evaluation evaluatedCode(const std::string& code, std::vector<double>& slots);

/// True when two results are the same to the last bit.
bool sameBits(double a, double b);

}  // namespace vk
