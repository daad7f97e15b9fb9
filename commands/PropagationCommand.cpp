#include "commands/PropagationCommand.h"

#include "analysis/HistogramFile.h"
#include "commands/DataCommands.h"
#include "commands/ExhaustedBox.h"
#include "commands/PropagationScreen.h"
#include "commands/RandomSource.h"

namespace vk {
namespace {

constexpr const char* kDerivativesFailed = "Errori nel Calcolo delle Derivate Parziali";
constexpr const char* kSimulationFailed = "Errori nella Simulazione di Monte Carlo";
constexpr const char* kNoDependence = "\nla funzione NON dipende dalle variabili";
constexpr const char* kFileName = "Mon_Sim.DAT";

void tellFailure(Dialogs& dialogs, PropagationEnd end) {
  switch (end) {
    case PropagationEnd::kDerivativesFailed:
      return dialogs.plainBox(kProgramTitle, kDerivativesFailed);
    case PropagationEnd::kSimulationFailed:
      return dialogs.plainBox(kProgramTitle, kSimulationFailed);
    case PropagationEnd::kNoDependence:
      return dialogs.plainBox(kProgramTitle, kSimulationFailed + WindowText(kNoDependence));
    case PropagationEnd::kCompleted:
      break;
  }
}

}  // namespace

PropagationResult PropagateErrors(Session& session, Ports& ports) {
  const ShutWindow shut(ports.window, Form::kOutput);
  ports.random.seed(ports.clock.timer());
  session.analysis.monteCarlo = {};
  PropagationScreen screen(session.analysis.fun.FunctionText, session.analysis.par, ports.output);
  // The window can be asked to save while the samples still run. The session gets the histogram only when it is
  // whole, so that no half-filled one is written, or changed by being written.
  ports.output.setSaveRoutine([&session, disk = FilePorts(ports)] { SaveMonteCarlo(session, disk); });
  PropagationResult result = PropagateErrors(session.analysis, screen, ports.random, ports.dialogs);
  session.analysis.monteCarlo = result.histogram;
  if (result.end != PropagationEnd::kCompleted) ports.output.FrmOut_Exit();
  session.ErrFlag = 0;
  return result;
}

PropagationResult PropagateErrors(AnalysisState& analysis, PropagationObserver& screen, Random& random,
                                  Dialogs& dialogs) {
  ExhaustedBox listener(dialogs);
  RandomSource source(random);
  PropagationResult result = PropagateErrors(analysis.model, analysis.par, source, listener, screen);
  tellFailure(dialogs, result.end);
  return result;
}

void SaveMonteCarlo(Session& session, const FilePorts& ports) {
  const std::string text = monteCarloFileText(session.analysis.monteCarlo, session.analysis.fun.FunctionText);
  const std::string usual = joinPath(session.files.DataDir, kFileName);
  std::string other = kFileName;
  if (!ports.files.canWrite(usual) && saveDataText(session, ports, text, other)) return;
  ports.files.writeAll(usual, text);
}

}  // namespace vk
