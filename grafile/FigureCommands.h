#pragma once

#include "grafile/FigurePorts.h"
#include "session/Session.h"

/// The commands of the menu "Grafici" that draw, save and run figures, as straight-line code.
namespace vk {

/// Draw a standard figure on a plot window; what it needs and is missing is told.
void MenGraDatVis(Session& session, FigurePorts& ports);
void MenGraFunVis(Session& session, FigurePorts& ports);
void MenGraDifVis(Session& session, FigurePorts& ports);

/// Save the graphic text of the figure drawn last, and the differences as a data file.
void MenGraDatGra(Session& session, FigurePorts& ports);
void MenGraFunGra(Session& session, FigurePorts& ports);
void MenGraDifGra(Session& session, FigurePorts& ports);
void MenGraDifSav(Session& session, FigurePorts& ports);

/// Run the graphic file that was chosen, on a plot window or on the printer.
void MenGraVisFil(Session& session, FigurePorts& ports);
void MenGraPriFil(Session& session, FigurePorts& ports);

}  // namespace vk
