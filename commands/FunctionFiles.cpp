#include "commands/FunctionFiles.h"

#include "base/Text.h"
#include "expr/FunctionFile.h"

namespace vk {
namespace {

constexpr const char* kFunctionCheckCaption = "VOR_KEL: Lettura File Funzioni - Controllo File";

/// The functions of a text, checked; their report stays in `TraceText`.
FunctionFile checkedFunctions(Session& session, std::string_view text) {
  session.TraceText.clear();
  ParsedFunctionFile parsed = parseFunctionFile(
      text, {.compile = session.CheckFunctions != kFalse, .trace = session.TraceEnabled != kFalse});
  session.TraceText = std::move(parsed.report);
  session.ErrFlag = toFlag(!parsed.ok);
  return std::move(parsed.file);
}

}  // namespace

void CheckFunctionText(Session& session, std::string_view text) {
  checkedFunctions(session, text);
}

void ReadFunctionFile(Session& session, Files& files, OutputWindow& output, std::string& name,
                      Flag checkOnly) {
  session.TraceText.clear();
  const std::string text = files.readAll(name);
  name = upper(name);
  FunctionFile file = checkedFunctions(session, text);
  if (checkOnly) return;

  const bool good = session.ErrFlag == 0;
  if (!good && session.CheckFunctions && session.TraceEnabled) {
    output.OutShow(reportRequest(kFunctionCheckCaption, session.TraceText));
  }
  if (good) session.loaded.catalogue.file = std::move(file);
  session.TraceText.clear();
}

}  // namespace vk
