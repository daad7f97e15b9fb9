#pragma once

#include <CLI/CLI.hpp>

#include "batch/FigureOptions.h"

namespace vk {

/// Adds to a command the options that tell what a figure's file is to be like. Gives that of its size, which does not go
/// with all others everywhere.
CLI::Option* addFigureOptions(CLI::App& command, FigureOptions& options);

}  // namespace vk
