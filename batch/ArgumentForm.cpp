#include "batch/ArgumentForm.h"

#include <algorithm>

#include "batch/TerminalPorts.h"
#include "commands/ParameterCommands.h"

namespace vk {
namespace {

constexpr const char* kIndependentName = "x";

}  // namespace

std::string parameterNames(const std::vector<EnteredValue>& values) {
  std::string names;
  for (const EnteredValue& value : values) {
    if (value.assignment.name == kIndependentName) continue;
    names += (names.empty() ? "" : ",") + value.assignment.name;
  }
  return names;
}

EnteredValue ArgumentForm::takeValue(int variable) {
  const std::string name = session_.analysis.par.name(variable);
  const auto found = std::find_if(values_.begin(), values_.end(),
                                  [&](const EnteredValue& value) { return value.assignment.name == name; });
  if (found == values_.end() && variable == 0) return {{name, "0", 0}, "0"};
  if (found == values_.end()) throw UsageError("Manca il valore del parametro " + terminalText(name));
  const EnteredValue value = *found;
  values_.erase(found);
  return value;
}

void ArgumentForm::InpShow(InputTables& tables, Form) {
  const int count = tables.InpFieldCount / 2;
  const int first = session_.analysis.PropagationMode + 1;
  for (int i = 1; i <= count; ++i) {
    const EnteredValue entered = takeValue(first + i - 1);
    tables.InpValues[i] = entered.assignment.text;
    tables.InpValues[count + i] = entered.second;
  }
  if (!values_.empty()) {
    throw UsageError("La funzione non ha il parametro " + terminalText(values_.front().assignment.name));
  }
  session_.ErrFlag = 0;
  StoreParameters(session_);
}

void enterStart(Session& session, const std::vector<EnteredValue>& values) {
  ArgumentForm form(session, values);
  MenAdaPar(session, form);
  if (session.analysis.ParVar == kFalse) throw UsageError("Nessun parametro variabile (--par)");
}

}  // namespace vk
