#pragma once

#include <functional>
#include <string>

#include "batch/BatchRun.h"

namespace vk {

/// What is done around a command: it calls it, and gives its exit code.
using AroundCommand = std::function<int(const std::function<int()>& command)>;

inline int commandAlone(const std::function<int()>& command) {
  return command();
}

/// Runs a command of the terminal program within the test program: words with blanks between. Its figures are the
/// lines of what is drawn. What it prints is kept without asking for memory; `around` is called with the command alone.
BatchRun runHere(const std::string& line, const AroundCommand& around);

}  // namespace vk
