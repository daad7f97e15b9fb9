#include "commands/Preconditions.h"

#include "grafile/FigureKind.h"

namespace vk {
namespace {

constexpr const char* kNothingDefined = "Dati e Funzione NON definiti!";
constexpr const char* kNoData = "Dati NON Definiti!";
constexpr const char* kNoFunction = "Funzione NON Definita!";
constexpr const char* kNoParameters = "Parametri NON Definiti!";

/// What of data and function is missing; empty when both are there.
WindowText missingInput(bool function, bool data) {
  if (!function && !data) return kNothingDefined;
  if (!data) return kNoData;
  return function ? WindowText() : kNoFunction;
}

}  // namespace

bool canDrawFigure(const Session& session, Dialogs& dialogs, int figure) {
  const bool function = figure == kDataFigure || session.analysis.FunDefined != kFalse;
  const WindowText missing = missingInput(function, session.loaded.DataDefined != kFalse);
  if (missing.bytes().empty()) return true;
  dialogs.plainBox(kProgramTitle, missing + kPressToContinue);
  return false;
}

bool canFit(const Session& session, Ports& ports) {
  if ((session.analysis.ParVar & session.analysis.FunDefined & session.loaded.DataDefined) != kFalse)
    return true;
  WindowText missing =
      missingInput(session.analysis.FunDefined != kFalse, session.loaded.DataDefined != kFalse);
  if (missing.bytes().empty()) missing = kNoParameters;
  ports.dialogs.plainBox(kErrorTitle, missing + kPressToContinueClose);
  return false;
}

}  // namespace vk
