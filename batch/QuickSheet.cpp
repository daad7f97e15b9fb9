#include "batch/QuickSheet.h"

#include <memory>

#include "batch/DataInput.h"
#include "batch/TypedFormula.h"
#include "data/FigureText.h"
#include "expr/Formula.h"
#include "session/Session.h"

namespace vk {
namespace {

SheetData dataOfFile(const std::string& fileName, std::string& titleX, std::string& titleY) {
  Session session;
  TerminalFiles files;
  loadData(session, files, fileName);
  const DataSet& data = session.loaded.data;
  if (titleX.empty()) titleX = data.TitleX;
  if (titleY.empty()) titleY = data.TitleY;
  return {nameInKey(figureTextOfUtf8(GetFileName(fileName))), fileName, data};
}

SheetCurve curveOf(const std::string& text, EvaluationListener& listener) {
  const std::string expression = textOfWord(text);
  const auto formula = std::make_shared<Formula>(compileTyped("y@x@ @ @" + expression, false));
  const auto values = [formula, &listener](std::span<const double> x) {
    return formula->valuesAt(x, listener);
  };
  return {formulaInKey(expression), {"", expression}, values};
}

}  // namespace

PlotSheet quickSheet(const QuickSheetArguments& arguments, EvaluationListener& listener) {
  PlotSheet sheet;
  sheet.from = arguments.xmin;
  sheet.to = arguments.xmax;
  for (const std::string& file : arguments.dataFiles)
    sheet.points.push_back(dataOfFile(file, sheet.titleX, sheet.titleY));
  for (const std::string& function : arguments.functions) sheet.curves.push_back(curveOf(function, listener));
  if (sheet.points.empty()) {
    sheet.titleX = "x";
    sheet.titleY = "y";
  }
  return sheet;
}

}  // namespace vk
