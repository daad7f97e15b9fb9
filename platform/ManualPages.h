#pragma once

#include <string>

#include "base/EncodedText.h"

namespace vk {

class Files;
class Process;

/// What people have in front of them that the manual tells of.
enum class ManualTopic {
  kMainWindow,
  kFileChoice,
  kImport,
  kFunctionChoice,
  kFunctionLoading,
  kParameters,
  kFit,
  kDiagnosis,
  kFigure,
  kEditor,
  kFolders,
  kGraphicSettings,
  kCalculator,
  kPropagation,
  kSimulation,
  kTransformation,
  kDataErrors,
  kFunctionErrors,
  kFigureErrors,
};
inline constexpr int kManualTopics = static_cast<int>(ManualTopic::kFigureErrors) + 1;

/// A page of the manual, by its name without extension, and a heading of it as pages for a browser name it.
struct ManualPlace {
  const char* page;
  const char* heading;
};

/// Where the manual tells of a topic.
ManualPlace manualPlace(ManualTopic topic);

/// Opens the manual at a topic with the program that the desktop has for it: the page for a browser, or, in a folder
/// that the program was built in without them, the page as it is written. Gives what the user is to be told when that
/// fails; empty when it was opened.
WindowText openManual(Files& files, Process& process, ManualTopic topic);

}  // namespace vk
