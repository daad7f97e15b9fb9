#include "batch/FitFigures.h"

#include <array>
#include <iostream>

#include "base/Text.h"
#include "batch/DataInput.h"
#include "commands/FigureCommands.h"
#include "grafile/FigureKind.h"
#include "gral/NoPrinter.h"
#include "gral/ObserverDevice.h"
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

/// What `--band` can say, and the probability.
struct BandWord {
  const char* word;
  double percent;
};
constexpr std::array kBandWords{BandWord{"68", 68.27}, BandWord{"95", 95}};

}  // namespace

std::optional<BandWish> bandWish(const WantedFigures& wanted) {
  if (wanted.band.empty()) return std::nullopt;
  if (wanted.figure.empty() && wanted.graphicFile.empty())
    throw UsageError("--band: serve --figure o --save-gra");
  for (const BandWord& band : kBandWords) {
    if (wanted.band == band.word) return BandWish{band.percent, wanted.prediction};
  }
  throw UsageError("--band: si attende 68 o 95");
}

void drawFigure(Session& session, int kind, Device& page, EvaluationListener& listener) {
  TerminalDialogs dialogs("fit");
  NoPrinter printer;
  makeFigure(session, dialogs, {[&]() -> Device& { return page; }, printer}, kind, listener, [] {});
}

FitFigures::FitFigures(const WantedFigures& wanted, FigureMaker* maker) : wanted_(wanted) {
  dataDigits(wanted.digits);
  if (wanted.figure.empty()) {
    form_.device = std::make_unique<ObserverDevice>();
  } else {
    form_ = maker->formFor(wanted.figure, wanted.format);
  }
}

bool FitFigures::write(Session& session, EvaluationListener& listener) {
  const bool function = writeFunction(session, listener);
  return writeDifferences(session, listener) && function;
}

bool FitFigures::writeFunction(Session& session, EvaluationListener& listener) {
  if (wanted_.figure.empty() && wanted_.graphicFile.empty()) return true;
  drawFigure(session, kFunctionFigure, *form_.device, listener);
  const std::string& text = session.figures.GraphText[kFunctionFigure];
  if (!isComplete(text)) return false;
  const bool banded = !session.figures.band || session.ErrFlag == kFalse;
  if (!banded) std::cerr << kNoBand;
  TerminalFiles files;
  if (!wanted_.figure.empty()) writeFile(files, wanted_.figure, form_.bytes());
  if (!wanted_.graphicFile.empty()) writeFile(files, wanted_.graphicFile, asSaved(text));
  return banded;
}

bool FitFigures::writeDifferences(Session& session, EvaluationListener& listener) const {
  if (wanted_.differences.empty()) return true;
  ObserverDevice page;
  session.figures.DiffDigits = wanted_.digits;
  drawFigure(session, kDifferencesFigure, page, listener);
  if (!isComplete(session.figures.DiffText)) return false;
  TerminalFiles files;
  writeFile(files, wanted_.differences, asSaved(session.figures.DiffText));
  return true;
}

}  // namespace vk
