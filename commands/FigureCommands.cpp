#include "commands/FigureCommands.h"

#include "commands/ExhaustedBox.h"
#include "commands/Preconditions.h"
#include "grafile/FigureKind.h"

namespace vk {
namespace {

constexpr int kDifferencesFile = 0;

void drawFigure(Session& session, Ports& ports, FigureKind kind) {
  if (!canDrawFigure(session, ports.dialogs, kind)) return;
  ExhaustedBox listener(ports.dialogs);
  MakeGraph(session, ports, kind, listener);
}

}  // namespace

void MenGraDatVis(Session& session, Ports& ports) {
  drawFigure(session, ports, kDataFigure);
}

void MenGraFunVis(Session& session, Ports& ports) {
  drawFigure(session, ports, kFunctionFigure);
}

void MenGraDifVis(Session& session, Ports& ports) {
  drawFigure(session, ports, kDifferencesFigure);
}

void MenGraDatGra(Session& session, Ports& ports) {
  SaveGraphText(session, ports, kDataFigure);
}

void MenGraFunGra(Session& session, Ports& ports) {
  SaveGraphText(session, ports, kFunctionFigure);
}

void MenGraDifGra(Session& session, Ports& ports) {
  SaveGraphText(session, ports, kDifferencesFigure);
}

void MenGraDifSav(Session& session, Ports& ports) {
  SaveGraphText(session, ports, kDifferencesFile);
}

void MenGraVisFil(Session& session, Ports& ports) {
  RunGraphicFile(session, ports, session.loaded.GraFile, "Form", 0);
}

void MenGraPriFil(Session& session, Ports& ports) {
  RunGraphicFile(session, ports, session.loaded.GraFile, "Printer", 0);
}

}  // namespace vk
