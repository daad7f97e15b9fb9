#include "commands/ServiceCommands.h"

namespace vk {

void MenSerErr(Session& session, MainWindow& window) {
  session.settings.ShowErrors = ~session.settings.ShowErrors;
  window.setMenuChecked(Control::MenSerErr, session.settings.ShowErrors != kFalse);
}

void MenSerCal(Files& files, Process& process, Dialogs& dialogs) {
  if (process.start(joinPath(files.programFolder(), "tabulo"))) return;
  dialogs.plainBox(kProgramTitle, "Calcolatrice NON Trovata!     <*> per Continuare");
}

}  // namespace vk
