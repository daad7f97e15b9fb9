#include "batch/DrawCommand.h"

#include <iostream>

#include "batch/DataInput.h"
#include "batch/FileKind.h"
#include "batch/TerminalPorts.h"
#include "commands/ExhaustedBox.h"
#include "commands/PlotWindowCommands.h"
#include "grafile/GraphicFile.h"
#include "gral/NoPrinter.h"

namespace vk {

std::string drawGraphicFile(const std::string& fileName, const std::string& bytes, Device& page) {
  const std::string why = whyNot(FileKind::kGraphic, bytes);
  if (!why.empty()) throw UsageError(shownName(fileName) + ": non e` un file grafico: " + why);
  TerminalFiles files;
  TerminalDialogs dialogs("draw");
  ExhaustedBox listener(dialogs);
  NoPrinter printer;
  GralCls drawing(printer);
  drawing.GralGrStr(page, paperOrientation(FigureSettings{}), 1);
  GraphicRun run(files, drawing, listener);
  run.runText(bytes);
  drawing.GralGrEnd();
  return run.errors();
}

int runDraw(const DrawArguments& arguments, FigureMaker& maker) {
  FigureForm form = maker.formFor(arguments.figure, arguments.format);
  TerminalFiles files;
  std::string errors;
  const std::string& name = arguments.graphicFile;
  usingFile(name, [&] { errors = drawGraphicFile(name, files.readAll(name), *form.device); });
  if (errors.empty() || arguments.anyway) writeFile(files, arguments.figure, form.bytes());
  if (errors.empty()) return kExitDone;
  std::cerr << shownName(name) << ":\n" << terminalText(errors);
  return kExitBadInput;
}

}  // namespace vk
