#include "platform/system/Terminal.h"

#include <fcntl.h>
#include <linux/kd.h>
#include <sys/ioctl.h>
#include <unistd.h>

#include <csignal>

#include "platform/system/OpenFile.h"

namespace vk {

bool belongsToTerminal() {
  const OpenFile terminal("/dev/tty", O_RDONLY | O_NOCTTY | O_NONBLOCK);
  char keyboard = 0;
  return terminal.isOpen() && ioctl(terminal.handle(), KDGKBTYPE, &keyboard) != 0;
}

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
