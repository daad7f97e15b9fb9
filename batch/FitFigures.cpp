#include "batch/FitFigures.h"

#include <array>
#include <iostream>

#include "base/Text.h"
#include "batch/DataInput.h"
#include "batch/TerminalPicture.h"
#include "commands/FigureCommands.h"
#include "grafile/FigureDescription.h"
#include "grafile/FigureKind.h"
#include "grafile/ModernFigure.h"
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

void requireStyle(const WantedFigures& wanted) {
  if (wanted.modern() && !wanted.drawn())
    throw UsageError("--style, --residuals: serve --figure, --save-gra o --show");
  if (!wanted.style.empty() && wanted.style != kModernStyle)
    throw UsageError(std::string("--style: si attende ") + kModernStyle);
}

/// How the names of the files begin that a graphic file needs beside it; that of a stream has none.
std::string besideFile(const std::string& name) {
  if (name == kStandardStream) return "grafico";
  return name.substr(0, name.size() - std::min(name.size(), GetExtensionName(name).size() + 1));
}

}  // namespace

std::optional<BandWish> bandWish(const WantedFigures& wanted) {
  if (wanted.band.empty()) return std::nullopt;
  if (!wanted.drawn()) throw UsageError("--band: serve --figure, --save-gra o --show");
  for (const BandWord& band : kBandWords) {
    if (wanted.band == band.word) return BandWish{band.percent, wanted.prediction};
  }
  throw UsageError("--band: si attende 68 o 95");
}

void drawFigure(Session& session, int kind, Device& form, EvaluationListener& listener,
                const FigurePage& page) {
  TerminalDialogs dialogs("fit");
  NoPrinter printer(page.sides);
  session.figures.Landscape = toFlag(!page.portrait);
  session.figures.GraphScale.at(static_cast<std::size_t>(kind - 1)) = static_cast<float>(page.scale);
  makeFigure(session, dialogs, {[&]() -> Device& { return form; }, printer}, kind, listener, [] {});
}

FitFigures::FitFigures(const WantedFigures& wanted, FigureMaker* maker) : wanted_(wanted) {
  dataDigits(wanted.digits);
  requireStyle(wanted);
  if (!wanted.show.empty()) {
    requireShowWord(wanted.show);
    shown_ = shownForm(*maker);
  }
  if (wanted.figure.empty()) {
    form_.device = std::make_unique<ObserverDevice>();
  } else {
    form_ = maker->formFor(wanted.figure, wanted.options);
  }
}

bool FitFigures::write(Session& session, EvaluationListener& listener) {
  const bool function = writeFunction(session, listener);
  return writeDifferences(session, listener) && function;
}

/// The figure as the style has it. A function that cannot be computed leaves no text.
FigureTexts FitFigures::drawFunction(Session& session, EvaluationListener& listener, Device& form,
                                     const FigurePage& page) const {
  if (!wanted_.modern()) {
    drawFigure(session, kFunctionFigure, form, listener, page);
    return {.graph = session.figures.GraphText[kFunctionFigure], .failed = session.ErrFlag != kFalse};
  }
  FigureSource source = figureSource(session, kFunctionFigure);
  source.residuals = wanted_.residuals;
  source.beside = besideFile(wanted_.graphicFile);
  const auto values = computeFigure(source, listener, [] {});
  if (!values) return {};
  NoPrinter printer(page.sides);
  TerminalFiles files;
  GralCls drawing(printer);
  drawing.GralGrStr(form, page.orientation(), page.scale);
  FigureTexts texts = drawModern(source, *values, files, drawing, listener);
  drawing.GralGrEnd();
  return texts;
}

/// The graphic file tells of the page of A4, whatever is asked of the drawing.
bool FitFigures::writeFunction(Session& session, EvaluationListener& listener) {
  if (!wanted_.drawn()) return true;
  const FigureOptions& options = wanted_.options;
  FigureTexts texts = drawFunction(session, listener, *form_.device, filledPage(options));
  if (!isComplete(texts.graph)) return false;
  const bool banded = !session.figures.band || !texts.failed;
  if (!banded) std::cerr << kNoBand;
  TerminalFiles files;
  if (!wanted_.figure.empty()) {
    const std::string title = nameOfFigure(kFunctionFigure) + ": " + GetFileName(session.loaded.DataFile);
    writeFile(files, wanted_.figure, form_.bytes(describeFigure(texts.graph, title)));
  }
  if (!wanted_.show.empty()) {
    drawFunction(session, listener, *shown_.device, {});
    showPicture(shown_.device->Image(), wanted_.show);
  }
  if (wanted_.graphicFile.empty()) return banded;
  if (!options.size.empty() || options.portrait) {
    ObserverDevice page;
    texts = drawFunction(session, listener, page, {});
  }
  writeFile(files, wanted_.graphicFile, asSaved(texts.graph));
  for (const auto& [name, text] : texts.files) writeFile(files, name, text);
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
