// Makes the graphic files of the samples: for each its data, its data with the fitted function, and the
// differences with their data file. Run it in the folder of the samples.
// Usage: make_figures FOLDER

#include <iostream>

#include "base/Text.h"
#include "batch/FitFigures.h"
#include "batch/TerminalPorts.h"
#include "commands/ExhaustedBox.h"
#include "commands/FitCommand.h"
#include "commands/FitScreen.h"
#include "examples/ExampleFits.h"
#include "expr/FormulaText.h"
#include "grafile/FigureKind.h"
#include "gral/ObserverDevice.h"
#include "platform/GridOutput.h"
#include "platform/system/SystemClock.h"

namespace {

using namespace vk;

void fit(Session& session, Dialogs& dialogs, EvaluationListener& listener) {
  SystemClock clock;
  GridOutput output;
  FitScreen screen(session.analysis.fun.FunctionText, session.analysis.par, {output, dialogs, clock});
  FitData(session, listener, screen);
}

/// What the comments of the file tell its user to do.
std::string withDifferences(std::string text, const std::string& fileName) {
  ReplaceAll(text, "%\\DATI(inserire il nome del File Differenze)", "\\DATI(" + fileName + ")");
  return text;
}

void makeFigures(const ExampleFit& example, const std::string& folder) {
  TerminalFiles files;
  TerminalDialogs dialogs("make_figures");
  Session session;
  prepareExample(session, files, example);
  ExhaustedBox listener(dialogs);
  fit(session, dialogs, listener);
  for (const int kind : {kDataFigure, kFunctionFigure, kDifferencesFigure}) {
    ObserverDevice page;
    drawFigure(session, kind, page, listener);
  }
  const std::string differences = example.name + "_dif.dat";
  const auto write = [&](const std::string& name, const std::string& text) {
    files.writeAll(folder + "/" + name, text);
  };
  write(example.name + "_dat.gra", session.figures.GraphText[kDataFigure]);
  write(example.name + "_fun.gra", session.figures.GraphText[kFunctionFigure]);
  write(example.name + "_dif.gra",
        withDifferences(session.figures.GraphText[kDifferencesFigure], differences));
  write(differences, session.figures.DiffText);
}

}  // namespace

int main(int argc, char** argv) {
  if (argc != 2) {
    std::cerr << "make_figures FOLDER\n";
    return 2;
  }
  for (const ExampleFit& example : exampleFits()) makeFigures(example, argv[1]);
  return 0;
}
