/// Unit GralPlt: the commands that draw figures.
#pragma once

#include <functional>
#include <string>

#include "commands/Ports.h"
#include "grafile/StandardFigure.h"
#include "session/Session.h"

/// The commands of the menu "Grafici" that draw, save and run figures, as straight-line code.
namespace vk {

/// Draw a standard figure on a plot window; what it needs and is missing is told.
void MenGraDatVis(Session& session, Ports& ports);
void MenGraFunVis(Session& session, Ports& ports);
void MenGraDifVis(Session& session, Ports& ports);

/// Save the graphic text of the figure drawn last, and the differences as a data file.
void MenGraDatGra(Session& session, Ports& ports);
void MenGraFunGra(Session& session, Ports& ports);
void MenGraDifGra(Session& session, Ports& ports);
void MenGraDifSav(Session& session, Ports& ports);

/// Run the graphic file that was chosen, on a plot window or on the printer.
void MenGraVisFil(Session& session, Ports& ports);
void MenGraPriFil(Session& session, Ports& ports);

/// Draws a graphic file on a new plot window ("Form") or on the printer ("Printer") and refreshes the menus.
///
/// A line that fails draws nothing, and the next line runs; the list of errors is shown if the session's
/// `ShowErrors` is on. With an `errorFlag` other than 0 every command fails. The data of the session are
/// afterwards as they were; only the name of a loaded file is folded to capitals. A file that cannot be opened
/// is a run-time error (`Files::readAll`), a last line that asks for a continuation is 62. `ErrFlag` is -1 where a
/// function of the last line could not be computed at its last point, else 0; an empty file leaves it as it was.
void RunGraphicFile(Session& session, Ports& ports, const std::string& fileName, const std::string& device,
                    Int16 errorFlag);

/// Draws a standard figure (`FigureKind`) on a new plot window, leaves its graphic text in `GraphText`, and for
/// the differences their data file in `DiffText`; refreshes the menus.
///
/// Limits that are equal, but for the rounding of their values, are opened on both sides: by half their value,
/// or by 1 where that is 0.
/// A failing step sets `ErrFlag` to -1 and the next one goes on. Where the function cannot be computed, its
/// curve has a gap. More than five such points of the curve, or one of the differences, end the figure: both
/// texts are empty then and no window is opened.
void MakeGraph(Session& session, Ports& ports, int kind, EvaluationListener& listener);

/// What a standard figure of the session is made of; it refers to the session.
FigureSource figureSource(Session& session, int kind);

/// What a figure is drawn on.
struct FigureSurface {
  std::function<Device&()> newForm;  ///< asked for once the figure has been computed
  Device& printer;
};

/// The same without windows; `pointFailed` runs at each point where the function has no value.
void makeFigure(Session& session, Dialogs& dialogs, const FigureSurface& surface, int kind,
                EvaluationListener& listener, const std::function<void()>& pointFailed);

/// Asks for a name and writes the graphic text of a figure (1 to 3), or with kind 0 the differences file.
/// `ErrFlag` is 0 afterwards. A disk that fails while writing is a run-time error.
void SaveGraphText(Session& session, Ports& ports, int kind);

}  // namespace vk
