#include "base/Guard.h"
#include "commands/DisplayRefresh.h"
#include "commands/FigureCommands.h"
#include "commands/PlotWindowCommands.h"
#include "expr/Catalogue.h"
#include "grafile/StandardFigure.h"
#include "session/SoundSignal.h"

namespace vk {
namespace {

constexpr const char* kCurveFailed = "Errori nel Calcolo della Funzione";

constexpr Int16 kErrorSound = 1;

/// Beeps at each point where the function has no value, and passes on that a kernel is exhausted.
class FailureSignals : public FigureListener {
 public:
  FailureSignals(Session& session, FigurePorts& ports, EvaluationListener& listener)
      : session_(session), ports_(ports), listener_(listener) {}
  void pointFailed() override { SoundSignal(session_.settings, ports_.sound, kErrorSound); }
  void exhausted(Kernel kernel) override { listener_.exhausted(kernel); }

 private:
  Session& session_;
  FigurePorts& ports_;
  EvaluationListener& listener_;
};

FigureSource sourceOf(const Session& session, Model& model, int kind) {
  return {.kind = kind,
          .data = session.loaded.data,
          .dataName = session.loaded.DataFile,
          .dataPath = session.loaded.DataPath,
          .functionText = session.analysis.fun.FunctionText,
          .expression = ComposeFunctionText(session.loaded.catalogue, session.analysis.fun),
          .model = model,
          .parameters = session.analysis.par};
}

/// Opens a plot window for a figure.
void openFigure(Session& session, FigurePorts& ports, GralCls& drawing, int kind) {
  PlotWindow& window = newPlotWindow(ports);
  drawing.GralCaption = "VOR_KEL: Grafico " + nameOfFigure(kind);
  const auto scale = static_cast<double>(session.figures.GraphScale.at(static_cast<std::size_t>(kind - 1)));
  guard(session.ErrFlag,
        [&] { drawing.GralGrStr(window.device(), paperOrientation(session.figures), scale); });
}

}  // namespace

void MakeGraph(Session& session, FigurePorts& ports, Int16 kind, EvaluationListener& listener) {
  Model& model = session.analysis.model;
  const FigureSource source = sourceOf(session, model, kind);
  FailureSignals signals(session, ports, listener);
  FigureTexts texts;
  const auto values = computeFigure(source, signals);
  session.ErrFlag = toFlag(!values && kind == kDifferencesFigure);
  if (values) {
    GralCls drawing(ports.printer, ports.screen);
    openFigure(session, ports, drawing, kind);
    texts = drawFigure(source, *values, drawing, signals);
    if (texts.failed != 0) session.ErrFlag = kTrue;
  } else if (kind == kFunctionFigure) {
    ports.dialogs.plainBox(kProgramTitle, std::string(kCurveFailed) + kPressToContinueClose);
  }
  session.figures.GraphText.at(static_cast<std::size_t>(kind)) = texts.graph;
  if (!values || kind == kDifferencesFigure) session.figures.DiffText = texts.differences;
  Msg(session, ports.window);
}

}  // namespace vk
