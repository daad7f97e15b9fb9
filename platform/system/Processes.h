#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace vk {

/// What a process has left.
struct ProcessEnd {
  std::string output, errors;  ///< what it has written to its two streams
  int exitCode = 0;
  int signal = 0;  ///< the one that ended it; 0 when it came to its end
};

/// Runs the tasks 0 to `count` - 1, each in a process that is a copy of this one, at most `jobs` at a time: a task that
/// breaks down takes nothing else with it. `task` gives the exit code and writes to the standard streams of C++. `take`
/// gets the ends here, in the order of the tasks, each as early as may be; with false it ends the others. No process
/// outlives this one. Fewer run at once where the system has no more; one that has none at all is a run-time error.
void runInProcesses(int count, int jobs, const std::function<int(int)>& task,
                    const std::function<bool(int, const ProcessEnd&)>& take);

/// Runs a program, found as a shell finds it, with an input, and waits for its end. Exit code 127: it cannot be
/// started.
ProcessEnd runProgram(const std::vector<std::string>& words, std::string_view input = {});

/// Holds the signals back with which a person ends a program, as long as it lives: what is being written is written as
/// a whole.
class SignalHold {
 public:
  SignalHold();
  ~SignalHold();
  SignalHold(const SignalHold&) = delete;
  SignalHold& operator=(const SignalHold&) = delete;
};

}  // namespace vk
