#pragma once

#include <string>

#include "batch/BatchRun.h"

namespace vk {

/// Runs a command of the terminal program within the test program: words with blanks between. Its figures are the
/// lines of what is drawn.
BatchRun runHere(const std::string& line);

}  // namespace vk
