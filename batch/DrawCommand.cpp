#include "batch/DrawCommand.h"

#include <iostream>

#include "batch/DataInput.h"
#include "commands/FigureCommands.h"

namespace vk {

std::string drawGraphicFile(Session& session, FigureDesk& desk, const std::string& fileName) {
  session.settings.ShowErrors = kTrue;
  RunGraphicFile(session, desk.ports, fileName, "Form", 0);
  return desk.output.request().text;
}

int runDraw(const DrawArguments& arguments, FigureMaker& maker) {
  FigureForm form = maker.formFor(arguments.figure);
  FigureDesk desk([&] { return std::move(form.device); });
  Session session;
  std::string errors;
  usingFile(arguments.graphicFile, [&] { errors = drawGraphicFile(session, desk, arguments.graphicFile); });
  if (errors.empty() || arguments.anyway) writeFile(desk.files, arguments.figure, form.bytes());
  if (errors.empty()) return kExitDone;
  std::cerr << shownName(arguments.graphicFile) << ":\n" << terminalText(errors);
  return kExitBadInput;
}

}  // namespace vk
