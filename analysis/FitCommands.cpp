#include "analysis/FitCommands.h"

#include "analysis/FitMod.h"
#include "analysis/FitScreen.h"
#include "analysis/Scopes.h"
#include "session/Refusals.h"

namespace vk {

void MenAdaAda(Session& session, Dialogs& dialogs, MainWindow& window, OutputWindow& output, Clock& clock) {
  if (!canFit(session, dialogs)) return;
  const FlagFor running(session.FitRunning, kTrue);
  FitScreen screen(session, output);
  FitData(session, dialogs, window, clock, screen);
}

}  // namespace vk
