#include "platform/system/Terminal.h"

#include <unistd.h>

#include <csignal>

namespace vk {

bool errorStreamIsTerminal() {
  return isatty(STDERR_FILENO) == 1;
}

void endWithReader() {
  std::signal(SIGPIPE, SIG_DFL);
}

}  // namespace vk
