#include "batch/ParameterValues.h"

#include <algorithm>
#include <iostream>

#include "batch/TerminalPorts.h"
#include "commands/ParameterCommands.h"
#include "session/Session.h"

namespace vk {
namespace {

constexpr const char* kIndependentName = "x";

/// Takes the value of a variable out of the list.
EnteredValue takeValue(std::vector<EnteredValue>& values, const std::string& name, bool canBeMissing) {
  const auto found =
      std::ranges::find_if(values, [&](const EnteredValue& value) { return value.assignment.name == name; });
  if (found == values.end() && canBeMissing) return {{name, 0}, 0};
  if (found == values.end()) throw UsageError("Manca il valore del parametro " + terminalText(name));
  EnteredValue value = *found;
  values.erase(found);
  return value;
}

[[noreturn]] void refuseLeftOver(const ParameterSet& par, const std::string& name) {
  for (int i = 0; i <= par.ParCount; ++i) {
    if (par.name(i) == name) refuseSecondValue(name);
  }
  throw UsageError("La funzione non ha il parametro " + terminalText(name));
}

/// Enters the numbers of the variables from `first` on.
void enter(Session& session, std::vector<EnteredValue> values, int first) {
  ParameterSet& par = session.analysis.par;
  std::vector<double> numbers, seconds;
  for (int i = first; i <= par.ParCount; ++i) {
    const EnteredValue entered = takeValue(values, par.name(i), i == 0);
    numbers.push_back(entered.assignment.value);
    seconds.push_back(entered.second);
  }
  if (!values.empty()) refuseLeftOver(par, values.front().assignment.name);
  StoreParameters(par, numbers, seconds, first);
  markParametersSet(session);
}

/// Tells the constant parameters that the formula of the model has not.
void tellUnused(const Session& session) {
  const CompiledExpression& formula = session.analysis.model.loaded();
  const ParameterSet& par = session.analysis.par;
  for (int i = 1; i <= formula.nPar; ++i) {
    const bool constant = par.ParDeltas[i] == 0;
    if (constant && !formula.uses(i + formula.nVar))
      std::clog << "parametro " << terminalText(par.name(i)) << ": non compare nella formula\n";
  }
}

}  // namespace

std::string parameterNames(const std::vector<EnteredValue>& values) {
  std::string names;
  for (const EnteredValue& value : values) {
    if (value.assignment.name == kIndependentName) continue;
    names += (names.empty() ? "" : ",") + value.assignment.name;
  }
  return names;
}

void enterStart(Session& session, const std::vector<EnteredValue>& values) {
  enter(session, values, 1);
  if (session.analysis.par.FreeCount == 0) throw UsageError("Nessun parametro variabile (--par)");
  tellUnused(session);
}

void enterErrors(Session& session, const std::vector<EnteredValue>& values) {
  enter(session, values, 0);
}

}  // namespace vk
