#include "batch/DrawCommand.h"

#include <iostream>

#include "batch/DataInput.h"
#include "batch/TerminalPorts.h"
#include "commands/ExhaustedBox.h"
#include "commands/PlotWindowCommands.h"
#include "grafile/GraphicFile.h"
#include "gral/NoPrinter.h"

namespace vk {

std::string drawGraphicFile(const std::string& fileName, Device& page) {
  TerminalFiles files;
  TerminalDialogs dialogs;
  ExhaustedBox listener(dialogs);
  const std::string text = files.readAll(fileName);
  NoPrinter printer;
  GralCls drawing(printer);
  drawing.GralGrStr(page, paperOrientation(FigureSettings{}), 1);
  GraphicRun run(files, drawing, listener);
  run.runText(text);
  drawing.GralGrEnd();
  return run.errors();
}

int runDraw(const DrawArguments& arguments, FigureMaker& maker) {
  FigureForm form = maker.formFor(arguments.figure);
  TerminalFiles files;
  std::string errors;
  usingFile(arguments.graphicFile, [&] { errors = drawGraphicFile(arguments.graphicFile, *form.device); });
  if (errors.empty() || arguments.anyway) writeFile(files, arguments.figure, form.bytes());
  if (errors.empty()) return kExitDone;
  std::cerr << shownName(arguments.graphicFile) << ":\n" << terminalText(errors);
  return kExitBadInput;
}

}  // namespace vk
