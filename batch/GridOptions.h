#pragma once

#include "batch/DrawCommand.h"
#include "batch/FileOptions.h"

namespace vk {

/// The options of `draw` for a grid file.
void addGridFigure(CLI::App& draw, FileOptions& files, DrawArguments& args);

/// Its options for data files and formulas on one sheet.
void addSheet(CLI::App& draw, FileOptions& files, DrawArguments& args);

}  // namespace vk
