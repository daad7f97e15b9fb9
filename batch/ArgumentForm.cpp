#include "batch/ArgumentForm.h"

#include <algorithm>

#include "analysis/InitialParameters.h"
#include "batch/TerminalPorts.h"

namespace vk {

StartValue ArgumentForm::takeValue(const std::string& name) {
  const auto found = std::find_if(values_.begin(), values_.end(),
                                  [&](const StartValue& value) { return value.assignment.name == name; });
  if (found == values_.end()) throw UsageError("Manca il valore del parametro " + name);
  const StartValue value = *found;
  values_.erase(found);
  return value;
}

void ArgumentForm::InpShow(InputTables& tables, Form) {
  const int count = tables.InpFieldCount / 2;
  for (int i = 1; i <= count; ++i) {
    const StartValue start = takeValue(session_.par.name(i));
    tables.InpValues[i] = start.assignment.text;
    tables.InpValues[count + i] = start.fixed ? "0" : "1";
  }
  if (!values_.empty()) {
    throw UsageError("La funzione non ha il parametro " + values_.front().assignment.name);
  }
  session_.ErrFlag = 0;
  StoreParameters(session_);
}

}  // namespace vk
