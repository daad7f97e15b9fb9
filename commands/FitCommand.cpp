#include "commands/FitCommand.h"
#include "commands/SessionModel.h"

#include "base/FlagFor.h"
#include "commands/FitScreen.h"
#include "commands/Preconditions.h"

namespace vk {

void MenAdaAda(Session& session, Dialogs& dialogs, MainWindow& window, OutputWindow& output, Clock& clock) {
  if (!canFit(session, dialogs)) return;
  const FlagFor running(session.FitRunning, kTrue);
  FitScreen screen(session.analysis.fun.FunctionText, session.analysis.par, {output, dialogs, clock});
  const ShutWindow shut(window, Form::kOutput);
  FitData(session, dialogs, screen);
}

FitResult FitData(Session& session, Dialogs& dialogs, FitObserver& observer) {
  ExhaustedBox listener(session, dialogs);
  Model model = modelOf(session.analysis);
  FitResult result = FitData({session.loaded.data, model, listener}, session.analysis.par, observer);
  session.analysis.par = result.par;
  if (result.ErrEff.upper() >= 0) session.loaded.data.ErrEff = result.ErrEff;
  session.ErrFlag = toFlag(!result.complete());
  return result;
}

}  // namespace vk
