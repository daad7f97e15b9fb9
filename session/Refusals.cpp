#include "session/Refusals.h"

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
  const bool function = figure == kDataFigure || session.FunDefined != kFalse;
  const std::string missing = missingInput(function, session.DataDefined != kFalse);
  if (missing.empty()) return true;
  dialogs.plainBox(kProgramTitle, missing + "     <*> per Continuare");
  return false;
}

bool canFit(const Session& session, Dialogs& dialogs) {
  if ((session.ParVar & session.FunDefined & session.DataDefined) != kFalse) return true;
  std::string missing = missingInput(session.FunDefined != kFalse, session.DataDefined != kFalse);
  if (missing.empty()) missing = "Parametri NON Definiti!";
  dialogs.plainBox("ERRORE !", missing + "  <*> per Continuare");
  return false;
}

}  // namespace vk
