#include "batch/FitCommand.h"

#include <iostream>

#include "analysis/LinearisedErrors.h"
#include "batch/DataInput.h"
#include "batch/FitReport.h"
#include "batch/TerminalPorts.h"
#include "batch/TerminalProgress.h"
#include "commands/ExhaustedBox.h"
#include "commands/FitCommand.h"
#include "commands/FitScreen.h"
#include "platform/GridOutput.h"
#include "platform/system/SystemClock.h"
#include "session/Session.h"

namespace vk {

FitOutcome fitAtTerminal(Session& session, Dialogs& dialogs, EvaluationListener& listener,
                         DerivedTable derived, bool withReport) {
  SystemClock clock;
  GridOutput output;
  FitScreen screen(session.analysis.fun.FunctionText, session.analysis.par, {output, dialogs, clock});
  TerminalProgress observer(screen);
  const FitResult result = FitData(session, listener, observer);
  FitOutcome outcome;
  outcome.failed = result.status == FitStatus::kFailed;
  if (outcome.failed) {
    std::cerr << "Adattamento non riuscito: " << result.reason << '\n';
  } else {
    outcome.screen = output.grid().toUtf8();
  }
  if (!withReport && (derived.empty() || outcome.failed)) return outcome;
  Model& model = session.analysis.model;
  const auto linearised =
      linearisedCovariance({session.loaded.data, model, listener}, result.par, result.chi_square);
  if (!derived.empty() && !outcome.failed) {
    outcome.derivedFailed = !derived.compute(result.par, linearised, listener);
    outcome.screen += derived.screen();
  }
  if (withReport) {
    outcome.report = fitReport(session.analysis.fun.FunctionText, result, linearised);
    if (!derived.empty()) outcome.report.add("derived", derived.report());
  }
  return outcome;
}

void printOutcome(const FitOutcome& outcome, bool asReport) {
  std::cout << (asReport ? outcome.report.text() + "\n" : outcome.screen);
}

int runFit(const FitArguments& arguments, FigureMaker* maker) {
  FitFigures figures(arguments.figures, maker);
  Session session;
  TerminalFiles files;
  TerminalDialogs dialogs;
  loadData(session, files, dialogs, arguments.dataFile);
  chooseModel(session, files, arguments.model, parameterNames(arguments.parameters));
  enterStart(session, arguments.parameters);
  const DerivedTable derived(arguments.derived, session.analysis.par);
  ExhaustedBox listener(dialogs);
  const FitOutcome outcome = fitAtTerminal(session, dialogs, listener, derived, arguments.json);
  printOutcome(outcome, arguments.json);
  const bool done = !outcome.failed && figures.write(session, listener) && !outcome.derivedFailed;
  return done ? kExitDone : kExitFailed;
}

}  // namespace vk
