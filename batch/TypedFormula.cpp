#include "batch/TypedFormula.h"

#include "base/Text.h"
#include "batch/TerminalPorts.h"
#include "expr/FormulaAdvice.h"

namespace vk {

void refuseDoubtful(const std::string& formula, const std::vector<std::string>& names) {
  const std::string lines = adviceLines(formula, adviseOn(formula, names));
  if (!lines.empty()) throw UsageError(terminalText(lines.substr(0, lines.size() - kCrLf.size())));
}

}  // namespace vk
