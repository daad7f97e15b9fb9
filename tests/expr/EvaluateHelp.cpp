#include "expr/EvaluateHelp.h"

#include <bit>
#include <cstdint>

namespace vk {

void PrintTo(const Evaluation& evaluation, std::ostream* out) {
  *out << "value " << testing::PrintToString(evaluation.value) << ", fault "
       << static_cast<int>(evaluation.fault);
}

Evaluation evaluated(const std::string& expression, const std::string& names,
                     const std::vector<double>& values, std::size_t exhausted) {
  const Compiled result = compiled("y@" + names + "@@@" + expression);
  EXPECT_EQ(result.flag, 0) << expression;
  Formula formula(result.expression);
  for (std::size_t i = 0; i < values.size(); ++i) formula.setValue(static_cast<int>(i) + 1, values[i]);
  KernelLog log;
  const Evaluation evaluation = formula.value(log);
  EXPECT_EQ(log.kernels.size(), exhausted) << expression;
  return evaluation;
}

double valueOf(const std::string& expression, const std::string& names, const std::vector<double>& values) {
  const Evaluation result = evaluated(expression, names, values);
  EXPECT_EQ(result.fault, Fault::kNone) << expression;
  return result.value;
}

Evaluation evaluatedCode(const std::string& code, std::vector<double>& slots) {
  NoListener nobody;
  return evaluate(code, slots, nobody);
}

bool sameBits(double a, double b) {
  return std::bit_cast<std::uint64_t>(a) == std::bit_cast<std::uint64_t>(b);
}

}  // namespace vk
