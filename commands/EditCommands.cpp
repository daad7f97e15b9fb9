#include "commands/EditCommands.h"

#include "commands/FilePicking.h"
#include "data/DataFiles.h"
#include "expr/FunctionFile.h"
#include "session/Session.h"

namespace vk {
namespace {

void edit(Session& session, Ports& ports, const WindowText& word, Int16 kind) {
  std::string name;
  PickFile(session, ports, kEditCaption + word, name, kind, kPickForEditor);
  if (session.ErrFlag == 0) ports.editor.OpenEditor(name, kind);
}

TextCheck checkData(const std::string& text) {
  const std::string errors = parseLines(text).errors;
  return {errors.empty(), errors};
}

TextCheck checkFunctions(const std::string& text) {
  const ParsedFunctionFile parsed = parseFunctionFile(text);
  return {parsed.ok, parsed.report};
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

TextCheck checkText(Int16 kind, const std::string& text) {
  if (kind == kDataKind) return checkData(text);
  if (kind == kFunctionKind) return checkFunctions(text);
  return {};
}

TextCheck checkText(Session& session, Int16 kind, const std::string& text) {
  session.ErrFlag = 0;
  TextCheck found = checkText(kind, text);
  session.ErrFlag = toFlag(!found.good);
  return found;
}

}  // namespace vk
