#pragma once

#include <optional>
#include <string>
#include <vector>

#include "grafile/PlotSheet.h"

namespace vk {

/// Data files and formulas in x for a quick look.
struct QuickSheetArguments {
  bool any() const { return !dataFiles.empty() || !functions.empty(); }

  std::vector<std::string> dataFiles, functions;
  double xmin = 0, xmax = 10;  ///< of a sheet without data
};

/// All of them in one sheet; the titles are those of the first file. A file or a formula that is wrong raises
/// `UsageError`. The curves compute by the listener.
PlotSheet quickSheet(const QuickSheetArguments& arguments, EvaluationListener& listener);

}  // namespace vk
