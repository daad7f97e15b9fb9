#include "commands/PropagationCommand.h"

#include "analysis/HistogramFile.h"
#include "commands/ExhaustedBox.h"
#include "commands/PropagationScreen.h"
#include "commands/RandomSource.h"

namespace vk {
namespace {

constexpr const char* kDerivativesFailed = "Errori nel Calcolo delle Derivate Parziali";
constexpr const char* kSimulationFailed = "Errori nella Simulazione di Monte Carlo";
constexpr const char* kNoDependence = "\nla funzione NON dipende dalle variabili";
constexpr const char* kFileName = "Mon_Sim.DAT";

}  // namespace

PropagationResult PropagateErrors(Session& session, Ports& ports) {
  const ShutWindow shut(ports.window, Form::kOutput);
  ports.random.seed(ports.clock.timer());
  session.analysis.monteCarlo = {};
  const ParameterSet& par = session.analysis.par;
  PropagationScreen screen(session.analysis.fun.FunctionText, par, ports.output);
  screen.open();
  // The window can be asked to save while the samples still run. The session gets the histogram only when it is
  // whole, so that no half-filled one is written, or changed by being written.
  ports.output.setSaveRoutine([&session, &files = ports.files] { SaveMonteCarlo(session, files); });
  ExhaustedBox listener(ports.dialogs);
  Model& model = session.analysis.model;
  RandomSource random(ports.random);
  PropagationResult result = PropagateErrors(model, par, random, listener, screen);
  session.analysis.monteCarlo = result.histogram;
  if (result.end != PropagationEnd::kCompleted) {
    tellFailure(ports.dialogs, result.end);
    ports.output.FrmOut_Exit();
  }
  session.ErrFlag = 0;
  return result;
}

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

void SaveMonteCarlo(Session& session, Files& files) {
  files.writeAll(joinPath(session.files.DataDir, kFileName),
                 monteCarloFileText(session.analysis.monteCarlo, session.analysis.fun.FunctionText));
}

}  // namespace vk
