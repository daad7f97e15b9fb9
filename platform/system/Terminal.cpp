#include "platform/system/Terminal.h"

#include <sys/ioctl.h>
#include <unistd.h>

#include <csignal>

namespace vk {

bool errorStreamIsTerminal() {
  return isatty(STDERR_FILENO) == 1;
}

std::optional<int> terminalColumns() {
  winsize size{};
  if (ioctl(STDOUT_FILENO, TIOCGWINSZ, &size) != 0 || size.ws_col == 0) return std::nullopt;
  return size.ws_col;
}

void endWithReader() {
  std::signal(SIGPIPE, SIG_DFL);
}

}  // namespace vk
