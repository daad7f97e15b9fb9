#include "batch/EvalCommand.h"

#include <array>
#include <charconv>
#include <iostream>

#include "base/CodePage.h"
#include "batch/Assignment.h"
#include "batch/TerminalPorts.h"
#include "expr/CmpMod.h"

namespace vk {
namespace {

constexpr int kPrintedDigits = 17;

std::string exactText(double value) {
  std::array<char, 32> buffer{};
  const auto end = std::to_chars(buffer.data(), buffer.data() + buffer.size(), value,
                                 std::chars_format::general, kPrintedDigits);
  return {buffer.data(), end.ptr};
}

CompiledExpression compile(Session& session, const std::string& expression,
                           const std::vector<Assignment>& variables) {
  std::string names;
  for (const Assignment& variable : variables) names += (names.empty() ? "" : ",") + variable.name;
  session.TraceEnabled = kTrue;
  CompiledExpression compiled;
  Int16 flag = kTrue;
  CompileExpression(session, "y@" + names + "@ @ @" + expression, compiled, flag);
  if (flag != 0) throw UsageError(terminalText(session.TraceText));
  for (int i = 1; i <= compiled.nVar; ++i) {
    compiled.Values[i] = variables[static_cast<std::size_t>(i - 1)].value;
  }
  return compiled;
}

}  // namespace

int runEval(const EvalArguments& arguments) {
  Session session;
  TerminalDialogs dialogs;
  CompiledExpression compiled =
      compile(session, textOfWord(arguments.expression), parseAssignments(arguments.assignments));
  if (arguments.list) {
    std::cout << toUtf8(listCode(compiled), CodePage::kCp437);
    return 0;
  }
  loadSlots(compiled);
  const double value = EvaluateCode(session, dialogs, compiled.Code, compiled.Slots);
  std::cout << exactText(value) << '\n';
  if (session.ErrFlag == 0) return 0;
  std::cerr << "Errori nel Calcolo della Funzione\n";
  return 1;
}

}  // namespace vk
