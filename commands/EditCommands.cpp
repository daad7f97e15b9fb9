#include "commands/EditCommands.h"

#include <utility>

#include "base/FlagFor.h"
#include "commands/FilePicking.h"
#include "commands/FunctionFiles.h"
#include "data/DataFiles.h"
#include "session/Session.h"

namespace vk {
namespace {

void edit(Session& session, Ports& ports, const WindowText& word, Int16 kind) {
  std::string name;
  PickFile(session, ports, kEditCaption + word, name, kind, kPickForEditor);
  if (session.ErrFlag == 0) ports.editor.OpenEditor(name, kind);
}

std::string checkData(Session& session, const std::string& text) {
  std::string report = parseLines(text).errors;
  session.ErrFlag = toFlag(!report.empty());
  return report;
}

std::string checkFunctions(Session& session, const std::string& text) {
  const FlagFor trace(session.TraceEnabled, kTrue);
  const FlagFor check(session.CheckFunctions, kTrue);
  CheckFunctionText(session, text);
  return std::exchange(session.TraceText, {});
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

TextCheck checkText(Session& session, Int16 kind, const std::string& text) {
  session.ErrFlag = 0;
  std::string report;
  if (kind == kDataKind) report = checkData(session, text);
  if (kind == kFunctionKind) report = checkFunctions(session, text);
  return {session.ErrFlag == 0, report};
}

}  // namespace vk
