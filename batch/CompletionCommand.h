#pragma once

#include <CLI/CLI.hpp>

namespace vk {

/// `completion`: prints what bash needs to complete the commands, options and files of this command line. Gives 0.
int runCompletion(const CLI::App& app);

}  // namespace vk
