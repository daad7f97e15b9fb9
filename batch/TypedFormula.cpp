#include "batch/TypedFormula.h"

#include <iostream>

#include "base/Text.h"
#include "batch/TerminalPorts.h"
#include "expr/Compiler.h"
#include "expr/FormulaAdvice.h"

namespace vk {
CompiledExpression compileTyped(const std::string& definition, bool trace) {
  Compilation compiled = compile(definition);
  if (trace) std::cerr << terminalText(compiled.report);
  const std::string lines = adviceLines(definition, compiled);
  if (!lines.empty()) throw UsageError(terminalText(lines));
  if (!compiled.ok) throw UsageError(terminalText(faultText(definition, compiled.faults.front())));
  return std::move(compiled.code);
}

std::string doubtLines(const std::string& lines) {
  return terminalText(lines.substr(0, lines.size() - kCrLf.size()));
}

std::string doubtText(const DoubtfulFunction& function) {
  return "riga " + std::to_string(function.line) + ", funzione " + std::to_string(function.number) + ":\n" +
         doubtLines(function.text);
}

}  // namespace vk
