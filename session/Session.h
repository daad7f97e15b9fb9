#pragma once

#include <memory>

#include "analysis/MonteCarloResult.h"
#include "analysis/ParameterSet.h"
#include "analysis/SimulationSettings.h"
#include "base/Int16.h"
#include "expr/FunctionDef.h"
#include "expr/Model.h"
#include "platform/InputForm.h"
#include "session/DesktopSettings.h"
#include "session/FigureSettings.h"
#include "session/FileSettings.h"
#include "session/FitRecord.h"
#include "session/LoadedFiles.h"

namespace vk {

/// `ErrFlag` after a cancelled file dialog.
inline constexpr int kCancelled = 32755;

/// The model function and its parameters, and what the commands of the analysis have left.
struct AnalysisState {
  Flag FunDefined;  ///< a model function is defined
  FunctionDef fun;
  Model model;  ///< made of `fun` when it is taken
  ParameterSet par;
  Flag ParametersSet;  ///< the parameters were entered at least once for this function
  Flag ParVar;         ///< at least one parameter is free
  Flag PropagationMode;
  SimulationSettings sim;
  Flag SimFirstTime = kTrue;
  MonteCarloResult monteCarlo;
  std::shared_ptr<const FitRecord> lastFit;  ///< none before the first
};

/// All that a running program knows. Whoever needs a part of it is given that part; two sessions can live side by
/// side.
struct Session {
  FileSettings files;
  LoadedFiles loaded;
  AnalysisState analysis;
  FigureSettings figures;
  DesktopSettings settings;
  InputTables input;  ///< of the input form in use

  Int16 ErrFlag;  ///< of the last command: 0 clear, -1 failed, 32755 cancelled, else a run-time error number
};

}  // namespace vk
