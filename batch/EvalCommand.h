#pragma once

#include <string>
#include <vector>

namespace vk {

/// `eval`: the value of one formula.
struct EvalArguments {
  std::string expression;
  std::vector<std::string> assignments;  ///< "name=value", in the order of the variables
  bool list = false;                     ///< print the compiled code instead of the value
  bool trace = false;                    ///< tell also what the compiler reports
};

/// Prints the value with 17 significant digits; gives 0, or 1 when the evaluation failed, which has no value to
/// print. A bad formula raises `UsageError`.
int runEval(const EvalArguments& arguments);

}  // namespace vk
