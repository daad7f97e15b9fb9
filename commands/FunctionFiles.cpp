#include "commands/FunctionFiles.h"

#include "base/Text.h"
#include "session/Session.h"

namespace vk {
namespace {

constexpr const char* kFunctionCheckCaption = "VOR_KEL: Lettura File Funzioni - Controllo File";

}  // namespace

void ReadFunctionFile(Session& session, Files& files, OutputWindow& output, std::string& name,
                      FunctionFileChecks checks) {
  const std::string text = files.readAll(name);
  name = upper(name);
  ParsedFunctionFile parsed = parseFunctionFile(text, checks);
  session.ErrFlag = toFlag(!parsed.ok);
  if (parsed.ok) {
    session.loaded.catalogue.file = std::move(parsed.file);
  } else if (checks.compile && checks.trace) {
    output.OutShow(
        reportRequest(kFunctionCheckCaption, Cp437Text(parsed.report), ManualTopic::kFunctionErrors));
  }
}

}  // namespace vk
