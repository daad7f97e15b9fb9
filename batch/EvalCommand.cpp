#include "batch/EvalCommand.h"

#include <array>
#include <charconv>
#include <iostream>

#include "base/CodePage.h"
#include "batch/Assignment.h"
#include "batch/TerminalPorts.h"
#include "batch/TypedFormula.h"
#include "commands/ExhaustedBox.h"
#include "expr/Compiler.h"
#include "expr/Formula.h"

namespace vk {
namespace {

constexpr int kPrintedDigits = 17;

std::string exactText(double value) {
  std::array<char, 32> buffer{};
  const auto end = std::to_chars(buffer.data(), buffer.data() + buffer.size(), value,
                                 std::chars_format::general, kPrintedDigits);
  return {buffer.data(), end.ptr};
}

Formula compiledFormula(const EvalArguments& arguments) {
  const std::vector<Assignment> variables = parseAssignments(arguments.assignments);
  std::string names;
  for (const Assignment& variable : variables) names += (names.empty() ? "" : ",") + variable.name;
  const std::string definition = "y@" + names + "@ @ @" + textOfWord(arguments.expression);
  Formula formula(compileTyped(definition, arguments.trace));
  for (std::size_t i = 0; i < variables.size(); ++i) {
    formula.setValue(static_cast<int>(i) + 1, variables[i].value);
  }
  return formula;
}

}  // namespace

int runEval(const EvalArguments& arguments) {
  Formula formula = compiledFormula(arguments);
  if (arguments.list) {
    std::cout << toUtf8(listCode(formula.compiled()), CodePage::kCp437);
    return 0;
  }
  TerminalDialogs dialogs("eval");
  ExhaustedBox listener(dialogs);
  const Evaluation found = formula.value(listener);
  if (found.fault != Fault::kNone) {
    std::cerr << kCalculationFailed << '\n';
    return 1;
  }
  std::cout << exactText(found.value) << '\n';
  return 0;
}

}  // namespace vk
