#include "expr/EvaluateHelp.h"

#include <bit>
#include <cstdint>

namespace vk {

void PrintTo(const Evaluation& evaluation, std::ostream* out) {
  *out << "value " << testing::PrintToString(evaluation.value) << ", flag " << evaluation.flag;
}

Evaluation evaluated(const std::string& expression, const std::string& names,
                     const std::vector<double>& values, int boxes) {
  Session session;
  ScriptedDialogs dialogs;
  for (int i = 0; i < boxes; ++i) dialogs.expectBox();
  CompiledExpression e;
  Int16 flag;
  CompileExpression(session, "y@" + names + "@@@" + expression, e, flag);
  EXPECT_EQ(flag, 0) << expression;
  for (std::size_t i = 0; i < values.size(); ++i) e.Values[static_cast<int>(i) + 1] = values[i];
  loadSlots(e);
  session.ErrFlag = 7;
  const double value = EvaluateCode(session, dialogs, e.Code, e.Slots);
  return {value, session.ErrFlag};
}

double valueOf(const std::string& expression, const std::string& names, const std::vector<double>& values) {
  const Evaluation result = evaluated(expression, names, values);
  EXPECT_EQ(result.flag, 0) << expression;
  return result.value;
}

Evaluation evaluatedCode(const std::string& code, std::vector<double>& slots) {
  Session session;
  ScriptedDialogs dialogs;
  Array<double> array;
  if (!slots.empty()) array.dim(static_cast<int>(slots.size()) - 1);
  for (std::size_t i = 0; i < slots.size(); ++i) array[static_cast<int>(i)] = slots[i];
  const double value = EvaluateCode(session, dialogs, code, array);
  for (std::size_t i = 0; i < slots.size(); ++i) slots[i] = array[static_cast<int>(i)];
  return {value, session.ErrFlag};
}

bool sameBits(double a, double b) {
  return std::bit_cast<std::uint64_t>(a) == std::bit_cast<std::uint64_t>(b);
}

}  // namespace vk
