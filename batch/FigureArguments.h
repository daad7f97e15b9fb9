#pragma once

#include <CLI/CLI.hpp>
#include <string>
#include <vector>

#include "batch/FigureOptions.h"

namespace vk {

/// The option that does not go with the size of a figure.
enum class SizeWithout { kScale, kPortrait };

/// Adds to a command the options that tell what a figure's file is to be like.
void addFigureOptions(CLI::App& command, FigureOptions& options, SizeWithout other);

/// How a terminal shows the figure.
void addShow(CLI::App& command, std::string& show);

/// Gives a bare `--show` the word that it stands for: what follows it is an argument of its own.
void nameShownForm(std::vector<std::string>& words);

}  // namespace vk
