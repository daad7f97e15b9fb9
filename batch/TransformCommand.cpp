#include "batch/TransformCommand.h"

#include <algorithm>
#include <iostream>

#include "analysis/Transformation.h"
#include "batch/DataInput.h"
#include "batch/Json.h"
#include "batch/TerminalPorts.h"
#include "batch/TypedFormula.h"
#include "commands/ExhaustedBox.h"
#include "data/DataFiles.h"
#include "data/FigureText.h"
#include "session/Session.h"

namespace vk {
namespace {

/// A title of the command line. Bytes that are no UTF-8 are those of an old file.
std::string titleOfWord(const std::string& word) {
  std::string title = figureText(FileText(word), word);
  if (word.find_first_of("\r\n") != std::string::npos ||
      std::count(title.begin(), title.end(), '?') != std::count(word.begin(), word.end(), '?'))
    throw UsageError("\"" + shownName(word) + "\": un carattere non puo` stare in un titolo");
  return title;
}

/// What the command line asks for; what it leaves out stays as it is.
TransformFormulas formulasOf(const TransformArguments& arguments, const DataSet& data) {
  const bool hasXErrors = data.kXpntErr != kFalse;
  if (!arguments.dx.empty() && !hasXErrors) throw UsageError("--dx: i dati non hanno errori di x");
  const auto entered = [](const std::string& word, const std::string& otherwise) {
    return word.empty() ? otherwise : textOfWord(word);
  };
  TransformFormulas formulas{arguments.titleX.empty() ? data.TitleX : titleOfWord(arguments.titleX),
                             arguments.titleY.empty() ? data.TitleY : titleOfWord(arguments.titleY),
                             {}};
  formulas.columns = {entered(arguments.x, "x"), entered(arguments.y, "y")};
  if (hasXErrors) formulas.columns.push_back(entered(arguments.dx, "dx"));
  formulas.columns.push_back(entered(arguments.dy, "dy"));
  return formulas;
}

void requireFormulas(const TransformArguments& arguments, const DataSet& data) {
  for (const std::string* word : {&arguments.x, &arguments.y, &arguments.dx, &arguments.dy}) {
    if (!word->empty()) compileTyped(columnDefinition(data, textOfWord(*word)), arguments.trace);
  }
}

Json column(const Array<double>& values, int count) {
  Json::List list;
  for (const double value : values.span(1, count)) list.emplace_back(value);
  return list;
}

Json report(const DataSet& data) {
  return Json::Object{
      {"schema_version", kSchemaVersion},
      {"title_x", utf8OfFigureText(data.TitleX)},
      {"title_y", utf8OfFigureText(data.TitleY)},
      {"x", column(data.Xpnt, data.NumPnt)},
      {"y", column(data.Ypnt, data.NumPnt)},
      {"dx", data.kXpntErr ? column(data.ErrXpnt, data.NumPnt) : Json()},
      {"dy", column(data.ErrYpnt, data.NumPnt)},
  };
}

}  // namespace

int runTransform(const TransformArguments& arguments) {
  const int digits = dataDigits(arguments.digits);
  Session session;
  TerminalFiles files;
  TerminalDialogs dialogs("transform");
  loadData(session, files, arguments.dataFile);
  const TransformFormulas formulas = formulasOf(arguments, session.loaded.data);
  requireFormulas(arguments, session.loaded.data);
  ExhaustedBox listener(dialogs);
  const TransformResult result = transform(session.loaded.data, formulas, listener);
  if (!result.failed.empty()) {
    std::cerr << "transform: " << failedRowsText(result.failed) << '\n';
    if (!arguments.anyway) return kExitFailed;
  }
  if (!arguments.outputFile.empty()) writeData(files, arguments.outputFile, result.data, arguments.digits);
  if (arguments.json) {
    std::cout << report(result.data).text() << '\n';
  } else if (arguments.outputFile.empty()) {
    std::cout << terminalFile(dataFileText(result.data, digits));
  }
  return result.failed.empty() ? kExitDone : kExitFailed;
}

}  // namespace vk
