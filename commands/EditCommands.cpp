#include "commands/EditCommands.h"

#include "commands/FilePicking.h"
#include "session/Session.h"

namespace vk {
namespace {

void edit(Session& session, Ports& ports, const std::string& word, Int16 kind) {
  std::string name;
  PickFile(session, ports, kEditCaption + word, name, kind, kPickForEditor);
  if (session.ErrFlag == 0) ports.editor.OpenEditor(name, kind);
}

}  // namespace

void MenDatMod(Session& session, Ports& ports) {
  edit(session, ports, kDataWord, kDataKind);
}

void MenFunMod(Session& session, Ports& ports) {
  edit(session, ports, kFunctionsWord, kFunctionKind);
}

void MenGraModFil(Session& session, Ports& ports) {
  edit(session, ports, kGraphicWord, kGraphicKind);
}

}  // namespace vk
