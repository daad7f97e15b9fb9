#include "batch/DrawCommand.h"

#include <iostream>

#include "batch/DataInput.h"
#include "batch/FileKind.h"
#include "batch/TerminalPicture.h"
#include "batch/TerminalPorts.h"
#include "batch/TypedFormula.h"
#include "commands/ExhaustedBox.h"
#include "data/GridFile.h"
#include "grafile/FigureDescription.h"
#include "grafile/GraphicFile.h"
#include "grafile/GridFigure.h"
#include "gral/NoPrinter.h"
#include "gral/ObserverDevice.h"

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
  run.seekIn({folderOf(fileName)});
  run.runText(bytes);
  drawing.GralGrEnd();
  std::vector<std::string> warnings = run.warnings();
  for (const std::string& doubt : run.doubts()) warnings.push_back("formula:\n" + doubtLines(doubt));
  return {run.errors(), warnings, describeFigure(bytes, GetFileName(fileName))};
}

namespace {

/// A graphic file tells of the page of A4, whatever is asked of the drawing.
std::string textForWholePage(const PlotSheet& sheet) {
  ObserverDevice form;
  NoPrinter printer;
  GralCls drawing(printer);
  drawing.GralGrStr(form, FigurePage{}.orientation(), FigurePage{}.scale);
  return sheetText(sheet, drawing);
}

DrawnFigure drawSheetOn(Device& form, const DrawArguments& arguments) {
  TerminalFiles files;
  TerminalDialogs dialogs("draw");
  ExhaustedBox listener(dialogs);
  const PlotSheet sheet = quickSheet(arguments.sheet, listener);
  const FigurePage page = filledPage(arguments.options);
  NoPrinter printer(page.sides);
  GralCls drawing(printer);
  drawing.GralGrStr(form, page.orientation(), page.scale);
  const std::string text = sheetText(sheet, drawing);
  const std::string errors = drawSheet(sheet, text, files, drawing, listener);
  drawing.GralGrEnd();
  const bool wholePage = arguments.options.size.empty() && !arguments.options.portrait;
  if (!arguments.savedFile.empty())
    writeFile(files, arguments.savedFile, wholePage ? text : textForWholePage(sheet));
  return {errors, {}, describeFigure(text, "")};
}

const std::string& fileOf(const DrawArguments& arguments) {
  return arguments.gridFile.empty() ? arguments.graphicFile : arguments.gridFile;
}

DrawnFigure drawOn(Device& form, const DrawArguments& arguments) {
  if (arguments.sheet.any()) return drawSheetOn(form, arguments);
  const FigurePage page = wholePage(arguments.options);
  DrawnFigure drawn;
  const std::string& name = fileOf(arguments);
  usingFile(name, [&] {
    TerminalFiles files;
    const std::string bytes = files.readAll(name);
    drawn = arguments.gridFile.empty() ? drawGraphicFile(name, bytes, form, page)
                                       : drawGrid(arguments, bytes, form, page);
  });
  return drawn;
}

void requireSense(const DrawArguments& arguments) {
  const int sources = static_cast<int>(!arguments.graphicFile.empty()) +
                      static_cast<int>(!arguments.gridFile.empty()) + static_cast<int>(arguments.sheet.any());
  if (sources != 1)
    throw UsageError("draw: serve un file grafico, oppure --grid FILE, o --data e --function");
  if (arguments.figure.empty() && arguments.show.empty()) throw UsageError("draw: serve --output o --show");
  if (!arguments.graphicFile.empty() && !arguments.savedFile.empty())
    throw UsageError("--save-gra: serve --grid, --data o --function");
  if (!arguments.show.empty()) requireShowWord(arguments.show);
  if (!(arguments.sheet.xmin < arguments.sheet.xmax))
    throw UsageError("--xmin: deve essere minore di --xmax");
}

}  // namespace

int runDraw(const DrawArguments& arguments, FigureMaker& maker) {
  requireSense(arguments);
  const std::string& name = fileOf(arguments);
  DrawnFigure drawn;
  const auto isGood = [&] { return drawn.errors.empty() || arguments.anyway; };
  if (!arguments.figure.empty()) {
    const FigureForm form = maker.formFor(arguments.figure, arguments.options);
    drawn = drawOn(*form.device, arguments);
    TerminalFiles files;
    if (isGood()) writeFile(files, arguments.figure, form.bytes(drawn.words));
  }
  if (!arguments.show.empty()) {
    const FigureForm form = shownForm(maker);
    drawn = drawOn(*form.device, arguments);
    if (isGood()) showPicture(form.device->Image(), arguments.show);
  }
  for (const std::string& warning : drawn.warnings) std::clog << warningLine(name, warning);
  if (drawn.errors.empty()) return kExitDone;
  std::cerr << shownName(name) << ":\n" << terminalText(drawn.errors);
  return kExitBadInput;
}

}  // namespace vk
