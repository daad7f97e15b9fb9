#include "batch/TypedFormula.h"

#include <iostream>

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

}  // namespace vk
