#include "platform/system/Terminal.h"

#include <unistd.h>

namespace vk {

bool errorStreamIsTerminal() {
  return isatty(STDERR_FILENO) == 1;
}

}  // namespace vk
