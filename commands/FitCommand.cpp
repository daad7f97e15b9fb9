#include "commands/FitCommand.h"

#include "analysis/FitMod.h"
#include "base/FlagFor.h"
#include "commands/FitScreen.h"
#include "session/Refusals.h"

namespace vk {

void MenAdaAda(Session& session, Dialogs& dialogs, MainWindow& window, OutputWindow& output, Clock& clock) {
  if (!canFit(session, dialogs)) return;
  const FlagFor running(session.FitRunning, kTrue);
  FitScreen screen(session, output);
  FitData(session, dialogs, window, clock, screen);
}

}  // namespace vk
