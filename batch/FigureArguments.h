#pragma once

#include <CLI/CLI.hpp>
#include <string>
#include <vector>

#include "batch/FigureOptions.h"

namespace vk {

/// Adds to a command the options that tell what a figure's file is to be like. Gives that of its size, which does not
/// go with all others everywhere.
CLI::Option* addFigureOptions(CLI::App& command, FigureOptions& options);

/// How a terminal shows the figure.
void addShow(CLI::App& command, std::string& show);

/// Gives a bare `--show` the word that it stands for: what follows it is an argument of its own.
void nameShownForm(std::vector<std::string>& words);

}  // namespace vk
