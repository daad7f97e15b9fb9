#include "commands/ServiceCommands.h"

#include "session/Session.h"

namespace vk {
namespace {

constexpr const char* kNoCalculator = "Calcolatrice NON Trovata!";

}  // namespace

void MenSerErr(Session& session, Ports& ports) {
  session.settings.ShowErrors = ~session.settings.ShowErrors;
  ports.window.setMenuChecked(Control::MenSerErr, session.settings.ShowErrors != kFalse);
}

void MenSerCal(Session&, Ports& ports) {
  if (ports.process.start(joinPath(ports.files.programFolder(), "tabulo"))) return;
  ports.dialogs.plainBox(kProgramTitle, kNoCalculator + WindowText(kPressToContinue));
}

void showManual(Ports& ports, ManualTopic topic) {
  const WindowText failure = openManual(ports.files, ports.process, topic);
  if (!failure.bytes().empty()) ports.dialogs.plainBox(kProgramTitle, failure + WindowText(kPressToContinue));
}

void MenSerImpDir(Session&, Ports& ports) {
  ports.panels.MenSerImpDir();
}

void MenSerImpGra(Session&, Ports& ports) {
  ports.panels.MenSerImpGra();
}

}  // namespace vk
