#pragma once

#include <array>
#include <string>

#include "analysis/MonteCarloResult.h"
#include "analysis/SimulationSettings.h"
#include "base/Array.h"
#include "base/Int16.h"
#include "platform/FontSpec.h"
#include "platform/InputForm.h"
#include "session/CompiledExpression.h"
#include "session/FileKind.h"
#include "session/FunctionDef.h"
#include "session/LoadedFiles.h"
#include "session/ParameterSet.h"

namespace vk {

/// `ErrFlag` after a cancelled file dialog.
inline constexpr int kCancelled = 32755;

/// A list of the files read last, newest first.
struct RecentList {
  static constexpr int kCapacity = 4;

  Array<std::string> files{kCapacity};  ///< 1..4, as they are shown
  Array<std::string> paths{kCapacity};  ///< 1..4, as they were opened
  Int16 RecentMax = kCapacity;
  Int16 RecentCount;
  Int16 pick;  ///< entry that the next reading command takes, from 1; 0 to ask
};

/// Where files are looked for, and the files read last.
struct FileSettings {
  std::string DataDir, FunDir, GraDir;
  std::string DataExt = "DAT", FunExt = "FCN", GraExt = "GRA";
  std::array<std::string, 4> WorkDir;  ///< rows 0 all, 1 data, 2 functions, 3 graphics
  Int16 WorkRow;
  RecentList RecentData, RecentFun, RecentGra;
  Int16 FileKind;
};

/// The model function and its parameters, and what the commands of the analysis have left.
struct AnalysisState {
  Flag FunDefined;  ///< a model function is defined
  FunctionDef fun;
  CompiledExpression model;  ///< the one area that all formulas are compiled into
  ParameterSet par;
  Flag ParametersSet;  ///< the parameters were entered at least once for this function
  Flag ParVar;         ///< at least one parameter is free
  Flag PropagationMode;
  SimulationSettings sim;
  Flag SimFirstTime = kTrue;
  MonteCarloResult monteCarlo;
};

/// The figures drawn last, as texts, and how figures are drawn.
struct FigureSettings {
  std::array<std::string, 4> GraphText;  ///< 1 data, 2 data and function, 3 differences
  std::string DiffText;
  std::array<float, 4> GraphScale{1, 1, 1, 1};
  std::array<float, 4> GraphScaleSaved{1, 1, 1, 1};
  Flag Landscape = kTrue;
  Flag LandscapeSaved;
};

/// Settings of the desktop.
struct DesktopSettings {
  Flag ShowErrors;  ///< full lists of errors instead of short messages
  Int16 BackImage, BackImageSaved;
  Int16 BackImageMax = 2;

  Flag BeepOn = kTrue;
  Int16 BeepFreqLow = 500, BeepFreqHigh = 1000;  ///< Hz
  Int16 BeepLenLow = 1, BeepLenHigh = 1;         ///< ms

  FontSpec FontLabel{"Arial", 9, 0};
  FontSpec FontFixed{"Courier New", 10, 255};
  FontSpec FontEdit{"Courier New", 10, 255};
  FontSpec FontSmall{"Courier New", 8, 255};
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

  // Registers and switches of the commands.
  Int16 ErrFlag;          ///< 0 clear, -1 failed, 32755 cancelled, else a run-time error number
  Flag TraceEnabled;      ///< compiler and function file reader write their report
  Flag CheckFunctions;    ///< the function file reader compiles each function
  std::string TraceText;  ///< the report, lines ended by CR LF
  Flag FitRunning;
  Flag GammaTold;  ///< the running command has had the box on a gamma function that does not converge
};

}  // namespace vk
