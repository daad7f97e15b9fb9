#include "batch/FitCommand.h"

#include <iostream>

#include "analysis/FitScreen.h"
#include "analysis/InitialParameters.h"
#include "analysis/LinearisedErrors.h"
#include "batch/ArgumentForm.h"
#include "batch/DataInput.h"
#include "batch/FitReport.h"
#include "batch/ModelChoice.h"
#include "batch/TerminalPorts.h"
#include "batch/TerminalProgress.h"
#include "expr/FunMod.h"
#include "platform/GridOutput.h"
#include "platform/system/SystemClock.h"
#include "platform/system/SystemFiles.h"

namespace vk {
namespace {

std::string parameterNames(const std::vector<StartValue>& parameters) {
  std::string names;
  for (const StartValue& parameter : parameters)
    names += (names.empty() ? "" : ",") + parameter.assignment.name;
  return names;
}

void chooseModel(Session& session, Files& files, const FitArguments& arguments) {
  BuildCatalogue(session);
  if (!arguments.function.empty()) {
    useFormula(session, arguments.function, parameterNames(arguments.parameters));
  } else if (!arguments.catalogue.empty()) {
    useCatalogue(session, arguments.catalogue);
  } else if (!arguments.functionFile.empty()) {
    reading(arguments.functionFile,
            [&] { useFunctionFile(session, files, arguments.functionFile, arguments.entry); });
  } else {
    throw UsageError("fit: si attende --function, --catalogue o --file");
  }
}

void enterParameters(Session& session, const FitArguments& arguments) {
  ArgumentForm form(session, arguments.parameters);
  MenAdaPar(session, form);
  if (session.ParVar == kFalse) throw UsageError("fit: nessun parametro variabile (--par)");
}

}  // namespace

int runFit(const FitArguments& arguments) {
  Session session;
  SystemFiles files;
  SystemClock clock;
  TerminalDialogs dialogs;
  NoMainWindow window;
  readData(session, files, dialogs, arguments.dataFile);
  chooseModel(session, files, arguments);
  enterParameters(session, arguments);

  GridOutput output;
  FitScreen screen(session, output);
  TerminalProgress observer(screen);
  const FitResult result = FitData(session, dialogs, window, clock, observer);
  const bool failed = result.status == FitStatus::kFailed;
  if (failed) std::cerr << "Adattamento non riuscito: " << result.reason << '\n';
  if (arguments.json) {
    std::cout << fitReport(session, result, linearisedErrors(session, dialogs)).text() << '\n';
  } else if (!failed) {
    std::cout << output.grid().toUtf8();
  }
  return failed ? 1 : 0;
}

}  // namespace vk
