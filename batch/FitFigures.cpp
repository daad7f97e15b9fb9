#include "batch/FitFigures.h"

#include <iostream>

#include "base/Text.h"
#include "batch/DataInput.h"
#include "batch/FigureDesk.h"
#include "commands/FigureCommands.h"
#include "grafile/FigureKind.h"
#include "session/Session.h"

namespace vk {
namespace {

/// A figure whose function could not be computed has no text.
bool isComplete(const std::string& text) {
  if (text.empty()) std::cerr << "La funzione non si puo` calcolare: nessun grafico\n";
  return !text.empty();
}

/// The program puts a line end behind the text.
std::string asSaved(const std::string& text) {
  return text + std::string(kCrLf);
}

}  // namespace

FitFigures::FitFigures(const WantedFigures& wanted, FigureMaker* maker) : wanted_(wanted) {
  if (wanted.figure.empty()) {
    form_.device = quietForm();
  } else {
    form_ = maker->formFor(wanted.figure);
  }
}

bool FitFigures::write(Session& session, EvaluationListener& listener) {
  const bool function = writeFunction(session, listener);
  return writeDifferences(session, listener) && function;
}

bool FitFigures::writeFunction(Session& session, EvaluationListener& listener) {
  if (wanted_.figure.empty() && wanted_.graphicFile.empty()) return true;
  FigureDesk desk([this] { return std::move(form_.device); });
  MakeGraph(session, desk.ports, static_cast<int>(kFunctionFigure), listener);
  if (!isComplete(session.figures.GraphText[kFunctionFigure])) return false;
  if (!wanted_.figure.empty()) writeFile(desk.files, wanted_.figure, form_.bytes());
  if (!wanted_.graphicFile.empty()) {
    writeFile(desk.files, wanted_.graphicFile, asSaved(session.figures.GraphText[kFunctionFigure]));
  }
  return true;
}

bool FitFigures::writeDifferences(Session& session, EvaluationListener& listener) const {
  if (wanted_.differences.empty()) return true;
  FigureDesk desk;
  MakeGraph(session, desk.ports, static_cast<int>(kDifferencesFigure), listener);
  if (!isComplete(session.figures.DiffText)) return false;
  writeFile(desk.files, wanted_.differences, asSaved(session.figures.DiffText));
  return true;
}

}  // namespace vk
