#include "batch/ExitCode.h"

#include <cerrno>
#include <iostream>
#include <string_view>

#include "batch/TerminalPorts.h"
#include "platform/system/SystemError.h"

namespace vk {
namespace {

// What tells an error asks for no memory, which may be what has run out.

/// A message without the line ends that a list of errors closes with.
std::string_view trimmedEnd(std::string_view text) {
  return text.substr(0, text.find_last_not_of('\n') + 1);
}

void tell(const std::string& command, const RuntimeError& error) {
  std::cerr << command << ": " << error.reason() << '\n';
}

int codeOf(const std::string& command, const std::function<int()>& run) {
  try {
    return run();
  } catch (const UsageError& error) {
    std::cerr << trimmedEnd(error.what()) << '\n';
    return kExitBadInput;
  } catch (...) {
    tell(command, presentRuntimeError());
    return kExitFailed;
  }
}

/// Writes what the streams still hold; the system's error number, 0 when all has been written. What is printed beside a
/// file that has the output for itself are notes: nobody fails for those.
int writeOutput() {
  if (std::cout.rdbuf() == std::clog.rdbuf()) return 0;
  errno = 0;
  if (std::cout.flush()) return 0;
  if (errno == 0) {
    // An earlier write failed, and its number is lost: another attempt tells it.
    std::cout.clear();
    std::cout << '\n' << std::flush;
  }
  return errno != 0 ? errno : EIO;
}

}  // namespace

int exitCodeOf(const std::string& command, const std::function<int()>& run) {
  const int code = codeOf(command, run);
  const int error = writeOutput();
  if (error == 0) return code;
  tell(command, systemError(error));
  return code == kExitDone ? kExitBadInput : code;
}

}  // namespace vk
