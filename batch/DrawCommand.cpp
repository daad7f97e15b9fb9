#include "batch/DrawCommand.h"

#include <iostream>

#include "batch/DataInput.h"
#include "batch/FileKind.h"
#include "batch/TerminalPorts.h"
#include "commands/ExhaustedBox.h"
#include "data/GridFile.h"
#include "grafile/FigureDescription.h"
#include "grafile/GraphicFile.h"
#include "grafile/GridFigure.h"
#include "gral/NoPrinter.h"

namespace vk {
namespace {

/// Draws the grid by a graphic file of its own, which is written where that is wished.
DrawnFigure drawGrid(const DrawArguments& arguments, const std::string& bytes, Device& form,
                     const FigurePage& page) {
  const bool inSpace = arguments.surface || arguments.columns;
  if (!inSpace && (arguments.theta || arguments.phi)) {
    throw UsageError("draw: --theta e --phi vogliono --surface o --columns");
  }
  const GridReading read = parseGrid(bytes);
  if (!read.errors.empty()) return {read.errors, {}, {}};
  GridFigure figure;
  if (arguments.surface) figure.kind = GridFigureKind::kSurface;
  if (arguments.columns) figure.kind = GridFigureKind::kColumns;
  figure.theta = arguments.theta.value_or(figure.theta);
  figure.phi = arguments.phi.value_or(figure.phi);
  figure.levels = arguments.levels.value_or(figure.levels);
  const std::string text = gridFigureText(read.grid, arguments.gridFile, figure);
  TerminalFiles files;
  if (!arguments.savedFile.empty()) writeFile(files, arguments.savedFile, text);
  return drawGraphicFile(arguments.gridFile, text, form, page);
}

}  // namespace

DrawnFigure drawGraphicFile(const std::string& fileName, const std::string& bytes, Device& form,
                            const FigurePage& page) {
  const std::string why = whyNot(FileKind::kGraphic, bytes);
  if (!why.empty()) throw UsageError(shownName(fileName) + ": non e` un file grafico: " + why);
  TerminalFiles files;
  TerminalDialogs dialogs("draw");
  ExhaustedBox listener(dialogs);
  NoPrinter printer(page.sides);
  GralCls drawing(printer);
  drawing.GralGrStr(form, page.orientation(), page.scale);
  GraphicRun run(files, drawing, listener);
  run.runText(bytes);
  drawing.GralGrEnd();
  return {run.errors(), run.warnings(), describeFigure(bytes, GetFileName(fileName))};
}

int runDraw(const DrawArguments& arguments, FigureMaker& maker) {
  const bool ofGrid = !arguments.gridFile.empty();
  if (ofGrid != arguments.graphicFile.empty())
    throw UsageError("draw: serve un file grafico, oppure --grid FILE");
  FigureForm form = maker.formFor(arguments.figure, arguments.options);
  const FigurePage page = wholePage(arguments.options);
  TerminalFiles files;
  DrawnFigure drawn;
  const std::string& name = ofGrid ? arguments.gridFile : arguments.graphicFile;
  usingFile(name, [&] {
    const std::string bytes = files.readAll(name);
    drawn = ofGrid ? drawGrid(arguments, bytes, *form.device, page)
                   : drawGraphicFile(name, bytes, *form.device, page);
  });
  for (const std::string& warning : drawn.warnings) std::clog << warningLine(name, warning);
  if (drawn.errors.empty() || arguments.anyway) writeFile(files, arguments.figure, form.bytes(drawn.words));
  if (drawn.errors.empty()) return kExitDone;
  std::cerr << shownName(name) << ":\n" << terminalText(drawn.errors);
  return kExitBadInput;
}

}  // namespace vk
