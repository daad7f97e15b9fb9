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
#include "expr/FormulaText.h"

namespace vk {
namespace {

constexpr int kPrintedDigits = 17;

std::string exactText(double value) {
  std::array<char, 32> buffer{};
  const auto end = std::to_chars(buffer.data(), buffer.data() + buffer.size(), value,
                                 std::chars_format::general, kPrintedDigits);
  return {buffer.data(), end.ptr};
}

Formula compiledFormula(const std::string& expression, const std::vector<Assignment>& variables) {
  std::string names;
  for (const Assignment& variable : variables) names += (names.empty() ? "" : ",") + variable.name;
  Compilation compiled = compile("y@" + names + "@ @ @" + expression);
  if (!compiled.ok) throw UsageError(terminalText(compiled.report));
  refuseDoubtful(expression, splitItems(names));
  Formula formula(std::move(compiled.code));
  for (std::size_t i = 0; i < variables.size(); ++i) {
    formula.setValue(static_cast<int>(i) + 1, variables[i].value);
  }
  return formula;
}

}  // namespace

int runEval(const EvalArguments& arguments) {
  Formula formula =
      compiledFormula(textOfWord(arguments.expression), parseAssignments(arguments.assignments));
  if (arguments.list) {
    std::cout << toUtf8(listCode(formula.compiled()), CodePage::kCp437);
    return 0;
  }
  TerminalDialogs dialogs;
  ExhaustedBox listener(dialogs);
  const Evaluation found = formula.value(listener);
  std::cout << exactText(found.value) << '\n';
  if (found.fault == Fault::kNone) return 0;
  std::cerr << kCalculationFailed << '\n';
  return 1;
}

}  // namespace vk
