#include "commands/Preconditions.h"

#include "grafile/FigureKind.h"

namespace vk {
namespace {

/// What of data and function is missing; empty when both are there.
std::string missingInput(bool function, bool data) {
  if (!function && !data) return "Dati e Funzione NON definiti!";
  if (!data) return "Dati NON Definiti!";
  return function ? "" : "Funzione NON Definita!";
}

}  // namespace

bool canDrawFigure(const Session& session, Dialogs& dialogs, int figure) {
  const bool function = figure == kDataFigure || session.analysis.FunDefined != kFalse;
  const std::string missing = missingInput(function, session.loaded.DataDefined != kFalse);
  if (missing.empty()) return true;
  dialogs.plainBox(kProgramTitle, missing + "     <*> per Continuare");
  return false;
}

bool canFit(const Session& session, Dialogs& dialogs) {
  if ((session.analysis.ParVar & session.analysis.FunDefined & session.loaded.DataDefined) != kFalse)
    return true;
  std::string missing =
      missingInput(session.analysis.FunDefined != kFalse, session.loaded.DataDefined != kFalse);
  if (missing.empty()) missing = "Parametri NON Definiti!";
  dialogs.plainBox("ERRORE !", missing + "  <*> per Continuare");
  return false;
}

}  // namespace vk
