#include "base/Guard.h"
#include "commands/DisplayRefresh.h"
#include "commands/FigureCommands.h"
#include "commands/PlotWindowCommands.h"
#include "expr/Catalogue.h"
#include "grafile/StandardFigure.h"
#include "session/SoundSignal.h"

namespace vk {
namespace {

constexpr const char* kGraphCaption = "VOR_KEL: Grafico ";
constexpr Int16 kErrorSound = 1;

void openFigure(Session& session, Device& form, GralCls& drawing, int kind) {
  drawing.GralCaption = kGraphCaption + nameOfFigure(kind);
  const auto scale = static_cast<double>(session.figures.GraphScale.at(static_cast<std::size_t>(kind - 1)));
  if (!guard([&] { drawing.GralGrStr(form, paperOrientation(session.figures), scale); }))
    session.ErrFlag = kTrue;
}

}  // namespace

FigureSource figureSource(Session& session, int kind) {
  return {.kind = kind,
          .data = session.loaded.data,
          .dataName = session.loaded.DataFile,
          .dataPath = session.loaded.DataPath,
          .functionText = session.analysis.fun.FunctionText,
          .expression = ComposeFunctionText(session.loaded.catalogue, session.analysis.fun),
          .model = session.analysis.model,
          .parameters = session.analysis.par,
          .band = session.figures.band ? &*session.figures.band : nullptr,
          .digits = session.figures.DiffDigits};
}

void MakeGraph(Session& session, Ports& ports, int kind, EvaluationListener& listener) {
  makeFigure(session, ports.dialogs,
             {[&]() -> Device& { return newPlotWindow(ports).device(); }, ports.printer()}, kind, listener,
             [&] { SoundSignal(session.settings, ports.sound, kErrorSound); });
  Msg(session, ports.window);
}

void makeFigure(Session& session, Dialogs& dialogs, const FigureSurface& surface, int kind,
                EvaluationListener& listener, const std::function<void()>& pointFailed) {
  const FigureSource source = figureSource(session, kind);
  FigureTexts texts;
  const auto values = computeFigure(source, listener, pointFailed);
  session.ErrFlag = toFlag(!values && kind == kDifferencesFigure);
  if (values) {
    GralCls drawing(surface.printer);
    openFigure(session, surface.newForm(), drawing, kind);
    texts = drawFigure(source, *values, drawing, listener);
    if (texts.failed) session.ErrFlag = kTrue;
  } else if (kind == kFunctionFigure) {
    dialogs.plainBox(kProgramTitle, kCalculationFailed + WindowText(kPressToContinueClose));
  }
  session.figures.GraphText.at(static_cast<std::size_t>(kind)) = texts.graph;
  if (!values || kind == kDifferencesFigure) session.figures.DiffText = texts.differences;
}

}  // namespace vk
