#include "commands/PropagationCommand.h"
#include "commands/PropagationScreen.h"

namespace vk {
namespace {

constexpr const char* kDerivativesFailed = "Errori nel Calcolo delle Derivate Parziali";
constexpr const char* kSimulationFailed = "Errori nella Simulazione di Monte Carlo";
constexpr const char* kNoDependence = "\nla funzione NON dipende dalle variabili";

void giveUp(Session& session, const PropagationPorts& ports, const std::string& text) {
  ports.dialogs.plainBox(kProgramTitle, text);
  session.ErrFlag = 0;
  ports.output.FrmOut_Exit();
}

PropagationEnd simulate(Session& session, const PropagationPorts& ports, PropagationScreen& screen,
                        PropagationResult& result) {
  MonteCarlo simulation(session, ports.dialogs, ports.random);
  simulation.setUpBins(result.analytic);
  screen.openSimulation();
  const bool completed = simulation.run([&](const SampleStatistics& samples) {
    result.samples = samples;
    screen.showSamples(samples);
  });
  session.analysis.monteCarlo.McBinWidth = simulation.McBinWidth();
  if (completed) return PropagationEnd::kCompleted;
  const bool flat = session.ErrFlag == MonteCarlo::kNoWidth;
  giveUp(session, ports, std::string(kSimulationFailed) + (flat ? kNoDependence : ""));
  return flat ? PropagationEnd::kNoDependence : PropagationEnd::kSimulationFailed;
}

PropagationEnd propagate(Session& session, const PropagationPorts& ports, PropagationScreen& screen,
                         PropagationResult& result) {
  screen.open();
  ports.output.setSaveRoutine([&session, &files = ports.files] { SaveMonteCarlo(session, files); });
  result.analytic = analyticErrors(session, ports.dialogs);
  if (session.ErrFlag != 0) {
    giveUp(session, ports, kDerivativesFailed);
    return PropagationEnd::kDerivativesFailed;
  }
  screen.showAnalytic(result.analytic);
  return simulate(session, ports, screen, result);
}

}  // namespace

PropagationResult PropagateErrors(Session& session, const PropagationPorts& ports) {
  const ShutWindow shut(ports.window, Form::kOutput);
  ports.random.seed(ports.clock.timer());
  session.analysis.monteCarlo = {};
  const Array<double> BaseValues = session.analysis.par.ParValues;
  PropagationScreen screen(session, ports.output);
  PropagationResult result;
  result.end = propagate(session, ports, screen, result);
  session.analysis.par.ParValues = BaseValues;
  return result;
}

}  // namespace vk
