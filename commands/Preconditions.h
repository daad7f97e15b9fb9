#pragma once

#include "commands/Ports.h"
#include "session/Session.h"

/// Commands whose menu entry can be on before all that they need is there test it themselves and say so.
namespace vk {

/// True when the figure (`FigureKind`) can be drawn; otherwise a plain box says what is missing.
bool canDrawFigure(const Session& session, Dialogs& dialogs, int figure);

/// True when a fit can start; otherwise a plain box says what is missing.
bool canFit(const Session& session, Ports& ports);

}  // namespace vk
