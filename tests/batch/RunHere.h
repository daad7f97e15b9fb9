#pragma once

#include <functional>
#include <string>

#include "batch/BatchRun.h"

namespace vk {

/// Runs a command of the terminal program within the test program: words with blanks between. Its figures are the
/// lines of what is drawn. What it prints is kept without asking for memory; `around` is called with the command alone.
BatchRun runHere(
    const std::string& line, const std::function<int(const std::function<int()>&)>& around =
                                 [](const std::function<int()>& command) { return command(); });

}  // namespace vk
