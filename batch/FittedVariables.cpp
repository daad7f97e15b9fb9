#include "batch/FittedVariables.h"

#include <algorithm>

#include "batch/TerminalPorts.h"
#include "expr/Compiler.h"
#include "session/Session.h"

namespace vk {
namespace {

using Values = std::vector<EnteredValue>;

bool hasName(const Values& values, const std::string& name) {
  return std::ranges::any_of(values, [&](const EnteredValue& v) { return v.assignment.name == name; });
}

void append(Values& values, const Values& others) {
  values.insert(values.end(), others.begin(), others.end());
}

Values valuesOf(const FittedParameters& fitted, const Values& others) {
  Values values;
  for (const FittedParameter& parameter : fitted.parameters) {
    if (hasName(others, parameter.name)) refuseSecondValue(parameter.name);
    values.push_back({{parameter.name, parameter.value}, parameter.error});
  }
  return values;
}

/// Leaves those that the formula takes; all of them for one that does not compile, which is told later.
void keepUsed(Values& values, const Values& others, const std::string& formula) {
  Values all = values;
  append(all, others);
  const Compilation compiled = compileFunction(parameterNames(all), formula);
  int index = 1;  // of the independent variable
  if (compiled.ok) std::erase_if(values, [&](const EnteredValue&) { return !compiled.code.uses(++index); });
}

/// Leaves those that the model has.
void keepNamed(Values& values, const ParameterSet& par) {
  std::erase_if(values, [&](const EnteredValue& value) {
    for (int i = 1; i <= par.ParCount; ++i) {
      if (par.name(i) == value.assignment.name) return false;
    }
    return true;
  });
}

void requireSingle(const Values& values, const FittedParameters& fitted) {
  for (const EnteredValue& value : values) {
    const std::string& name = value.assignment.name;
    if (std::ranges::count(fitted.parameters, name, &FittedParameter::name) > 1)
      throw UsageError(fitted.file + ": piu` di un parametro ha il nome " + terminalText(name));
  }
}

/// The errors of the parameters that come from the fit and have one.
CorrelatedErrors errorsOf(const ParameterSet& par, const FittedParameters& fitted) {
  std::vector<int> variables, places;
  std::vector<double> deviations;
  for (int i = 1; i <= par.ParCount; ++i) {
    const auto found = std::ranges::find(fitted.parameters, par.name(i), &FittedParameter::name);
    if (found == fitted.parameters.end() || found->error == 0) continue;
    variables.push_back(i);
    places.push_back(static_cast<int>(found - fitted.parameters.begin()) + 1);
    deviations.push_back(found->error);
  }
  CorrelationMatrix correlation(static_cast<int>(places.size()));
  for (std::size_t a = 0; a < places.size(); ++a) {
    for (std::size_t b = 0; b < a; ++b)
      correlation.set(static_cast<int>(a) + 1, static_cast<int>(b) + 1,
                      fitted.correlation.at(places[a], places[b]));
  }
  return {variables, deviations, factorOf(correlation, fitted.file)};
}

}  // namespace

void enterFitted(Session& session, Files& files, const ModelArguments& model, const FittedParameters& fitted,
                 const Values& others) {
  Values values = valuesOf(fitted, others);
  if (!model.function.empty()) keepUsed(values, others, textOfWord(model.function));
  Values all = values;
  append(all, others);
  chooseModel(session, files, model, parameterNames(all));
  keepNamed(values, session.analysis.par);
  requireSingle(values, fitted);
  append(values, others);
  enterErrors(session, values);
  session.analysis.par.correlated = errorsOf(session.analysis.par, fitted);
}

}  // namespace vk
