#pragma once

#include <string>
#include <vector>

#include "doubles/ScriptedDialogs.h"
#include "expr/CompileHelp.h"

namespace vk {

/// How near the distributions come to their true values.
inline constexpr double kKernelAccuracy = 3e-7;

/// Value and flag of an evaluation.
struct Evaluation {
  double value;
  int flag;
  bool operator==(const Evaluation&) const = default;
};
void PrintTo(const Evaluation& evaluation, std::ostream* out);

/// Compiles an expression of the named variables and evaluates it at their values. `boxes` are expected.
Evaluation evaluated(const std::string& expression, const std::string& names = "",
                     const std::vector<double>& values = {}, int boxes = 0);

/// The value alone; a flag that is set fails the test.
double valueOf(const std::string& expression, const std::string& names = "",
               const std::vector<double>& values = {});

/// Runs bytes over slots; gives value and flag, the slots are left as the run leaves them.
Evaluation evaluatedCode(const std::string& code, std::vector<double>& slots);

/// True when two results are the same to the last bit.
bool sameBits(double a, double b);

}  // namespace vk
