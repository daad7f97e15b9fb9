#include "batch/PropagateCommand.h"

#include <array>
#include <cmath>
#include <iostream>

#include "analysis/HistogramFile.h"
#include "base/CodePage.h"
#include "base/NumberText.h"
#include "base/Text.h"
#include "batch/DataInput.h"
#include "batch/FittedVariables.h"
#include "batch/Json.h"
#include "batch/Seed.h"
#include "batch/TerminalPorts.h"
#include "commands/PropagationCommand.h"
#include "commands/PropagationScreen.h"
#include "platform/GridOutput.h"
#include "platform/system/SystemRandom.h"
#include "session/Session.h"

namespace vk {
namespace {

constexpr const char* kCorrelated = "Parametri con errori correlati da ";

const char* statusName(PropagationEnd end) {
  constexpr std::array kNames{"completed", "derivatives_failed", "simulation_failed", "no_dependence"};
  return kNames.at(static_cast<std::size_t>(end));
}

Json variables(const ParameterSet& par, const PropagationResult& result) {
  const bool hasDerivatives = result.end != PropagationEnd::kDerivativesFailed;
  Json::List list;
  for (int i = 0; i <= par.ParCount; ++i) {
    list.push_back(Json::Object{
        {"name", toUtf8(par.name(i), CodePage::kCp437)},
        {"value", par.ParValues[i]},
        {"error", std::abs(par.ParDeltas[i])},
        {"error_kind", par.ParDeltas[i] < 0 ? "maximum" : "sigma"},
        {"derivative", hasDerivatives ? Json(result.analytic.Derivatives[i]) : Json()},
    });
  }
  return list;
}

Json samples(const PropagationResult& result) {
  if (result.end != PropagationEnd::kCompleted) return {};
  return Json::Object{
      {"count", result.samples.count},
      {"mean", result.samples.mean},
      {"spread", result.samples.spread},
      {"mean_error", result.samples.meanError},
  };
}

Json report(const std::string& functionText, const ParameterSet& par, const PropagationResult& result,
            float seed) {
  const bool hasDerivatives = result.end != PropagationEnd::kDerivativesFailed;
  const auto known = [&](double number) { return hasDerivatives ? Json(number) : Json(); };
  return Json::Object{
      {"schema_version", kSchemaVersion},
      {"function", toUtf8(trim(functionText), CodePage::kCp437)},
      {"variables", variables(par, result)},
      {"value", known(result.analytic.F0)},
      {"error_maximum", known(result.analytic.ErrorMax)},
      {"error_sigma", known(result.analytic.ErrorSigma)},
      {"samples", samples(result)},
      {"seed", double{seed}},
      {"status", statusName(result.end)},
  };
}

/// Chooses the model and enters its variables; gives the name of the file where some of them come from a fit.
std::string enterVariables(Session& session, Files& files, const PropagateArguments& arguments) {
  if (arguments.fitResult.empty()) {
    chooseModel(session, files, arguments.model, parameterNames(arguments.variables));
    enterErrors(session, arguments.variables);
    return {};
  }
  const FittedParameters fitted = readFitResult(files, arguments.fitResult);
  enterFitted(session, files, arguments.model, fitted, arguments.variables);
  if (!fitted.converged) std::clog << fitted.file << ": valori che NON sono di un minimo\n";
  return fitted.file;
}

}  // namespace

EnteredValue parseValueWithError(const std::string& argument) {
  const int comma = position(argument, ",");
  if (comma == 0) return {parseAssignment(argument), 0};
  const auto error = numberIn(trim(mid(argument, comma + 1)));
  if (!error) throw UsageError("\"" + argument + "\": si attende NOME=NUMERO,ERRORE");
  return {parseAssignment(left(argument, comma - 1)), *error};
}

int runPropagate(const PropagateArguments& arguments) {
  dataDigits(arguments.digits);
  Session session;
  TerminalFiles files;
  SystemRandom random;
  TerminalDialogs dialogs("propagate");
  GridOutput output;
  const float seed = seedFrom(arguments.seed, random);
  const std::string fitFile = enterVariables(session, files, arguments);

  const ParameterSet& par = session.analysis.par;
  const std::string& functionText = session.analysis.fun.FunctionText;
  PropagationScreen screen(functionText, par, output);
  PropagationResult result = PropagateErrors(session.analysis, screen, random, dialogs);
  const bool completed = result.end == PropagationEnd::kCompleted;
  if (arguments.json) {
    Json object = report(functionText, par, result, seed);
    if (!fitFile.empty()) object.add("fit_file", fitFile);
    std::cout << object.text() << '\n';
  } else if (completed) {
    std::cout << output.grid().toUtf8();
    if (!fitFile.empty()) std::cout << kCorrelated << fitFile << '\n';
  }
  if (!completed) return kExitFailed;
  if (!arguments.histogramFile.empty()) {
    writeFile(files, arguments.histogramFile,
              monteCarloFileText(result.histogram, functionText, arguments.digits));
  }
  return kExitDone;
}

}  // namespace vk
