#include "commands/FitCommand.h"

#include "commands/ExhaustedBox.h"
#include "commands/FitScreen.h"
#include "commands/Preconditions.h"

namespace vk {

void MenAdaAda(Session& session, Ports& ports) {
  ExhaustedBox listener(ports.dialogs);
  fitOnScreen(session, ports, listener);
}

void fitOnScreen(Session& session, Ports& ports, EvaluationListener& listener) {
  if (!canFit(session, ports)) return;
  FitScreen screen(session.analysis.fun.FunctionText, session.analysis.par,
                   {ports.output, ports.dialogs, ports.clock});
  const ShutWindow shut(ports.window, Form::kOutput);
  FitData(session, listener, screen);
}

FitResult FitData(Session& session, EvaluationListener& listener, FitObserver& observer) {
  Model& model = session.analysis.model;
  FitResult result = FitData({session.loaded.data, model, listener}, session.analysis.par, observer);
  session.analysis.par = result.par;
  if (result.ErrEff.upper() >= 0) session.loaded.data.ErrEff = result.ErrEff;
  session.ErrFlag = toFlag(!result.complete());
  return result;
}

}  // namespace vk
