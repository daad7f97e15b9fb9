#include "platform/system/Processes.h"

#include <fcntl.h>
#include <poll.h>
#include <signal.h>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <iostream>
#include <list>
#include <map>
#include <utility>
#include <vector>

#include "platform/system/SystemError.h"

namespace vk {
namespace {

/// A descriptor that is shut at the end.
class Descriptor {
 public:
  Descriptor() = default;
  Descriptor(Descriptor&& other) noexcept : number_(std::exchange(other.number_, -1)) {}
  Descriptor& operator=(Descriptor&& other) noexcept {
    std::swap(number_, other.number_);
    return *this;
  }
  explicit Descriptor(int number) : number_(number) {}
  ~Descriptor() { shut(); }

  int number() const { return number_; }
  void shut() {
    if (number_ >= 0) ::close(number_);
    number_ = -1;
  }

 private:
  int number_ = -1;
};

struct Pipe {
  Descriptor reading, writing;

  bool open() {
    std::array<int, 2> ends{};
    if (::pipe2(ends.data(), O_CLOEXEC) != 0) return false;
    reading = Descriptor(ends[0]);
    writing = Descriptor(ends[1]);
    return true;
  }
};

/// What is to be read of one stream of a process.
struct Stream {
  Descriptor descriptor;
  std::string ProcessEnd::*text;
};

struct Child {
  int task = 0;
  pid_t id = 0;
  ProcessEnd end;
  std::array<Stream, 2> streams;

  bool done() const { return streams[0].descriptor.number() < 0 && streams[1].descriptor.number() < 0; }
};

/// What the task throws ends its process: the copy of the program must not go on behind the call that made it.
[[noreturn]] void runTask(const std::function<int(int)>& task, int number, pid_t parent, int output,
                          int errors) noexcept {
  ::prctl(PR_SET_PDEATHSIG, SIGKILL);
  if (::getppid() != parent) ::_exit(EXIT_FAILURE);
  ::dup2(output, STDOUT_FILENO);
  ::dup2(errors, STDERR_FILENO);
  const int code = task(number);
  std::cout.flush();
  ::_exit(code);
}

/// Reads what is there; at the end of the stream it is shut. What cannot be read is an error: nobody is to take a part
/// for the whole.
void readSome(Stream& stream, ProcessEnd& end) {
  std::array<char, 65536> buffer;
  const ssize_t count = ::read(stream.descriptor.number(), buffer.data(), buffer.size());
  if (count > 0) {
    (end.*stream.text).append(buffer.data(), static_cast<std::size_t>(count));
  } else if (count == 0) {
    stream.descriptor.shut();
  } else if (errno != EINTR) {
    throw systemError(errno);
  }
}

/// Waits for the end of a process that has shut its streams.
void reap(Child& child) {
  int status = 0;
  while (::waitpid(child.id, &status, 0) < 0 && errno == EINTR) {
  }
  child.end.exitCode = WIFEXITED(status) ? WEXITSTATUS(status) : EXIT_FAILURE;
  child.end.signal = WIFSIGNALED(status) ? WTERMSIG(status) : 0;
}

/// The processes that run now; they end with it.
class Children {
 public:
  explicit Children(const std::function<int(int)>& task) : task_(task) {}
  Children(const Children&) = delete;
  Children& operator=(const Children&) = delete;
  ~Children() {
    for (Child& child : running_) ::kill(child.id, SIGKILL);
    for (Child& child : running_) reap(child);
  }

  int count() const { return static_cast<int>(running_.size()); }
  bool start(int number);
  void read();
  /// Takes the ends of those that are done.
  void collect(std::map<int, ProcessEnd>& ends);

 private:
  const std::function<int(int)>& task_;
  std::list<Child> running_;
};

/// False, with `errno`, where the system has no more processes or files.
bool Children::start(int number) {
  Pipe output, errors;
  if (!output.open() || !errors.open()) return false;
  std::cout.flush();
  const pid_t parent = ::getpid();
  const pid_t id = ::fork();
  if (id < 0) return false;
  if (id == 0) runTask(task_, number, parent, output.writing.number(), errors.writing.number());
  running_.push_back({number,
                      id,
                      {},
                      {Stream{std::move(output.reading), &ProcessEnd::output},
                       Stream{std::move(errors.reading), &ProcessEnd::errors}}});
  return true;
}

void Children::read() {
  std::vector<pollfd> waiting;
  for (const Child& child : running_) {
    for (const Stream& stream : child.streams) waiting.push_back({stream.descriptor.number(), POLLIN, 0});
  }
  if (::poll(waiting.data(), waiting.size(), -1) < 0) return;
  auto place = waiting.begin();
  for (Child& child : running_) {
    for (Stream& stream : child.streams) {
      if ((place++)->revents != 0) readSome(stream, child.end);
    }
  }
}

void Children::collect(std::map<int, ProcessEnd>& ends) {
  for (auto child = running_.begin(); child != running_.end();) {
    if (!child->done()) {
      ++child;
      continue;
    }
    reap(*child);
    ends.emplace(child->task, std::move(child->end));
    child = running_.erase(child);
  }
}

/// Who started the program may have left it deaf to the ends of processes: then the system would drop their exit codes.
void hearOfEnds() {
  struct sigaction present {};
  ::sigaction(SIGCHLD, nullptr, &present);
  if (present.sa_handler == SIG_IGN) ::signal(SIGCHLD, SIG_DFL);
}

sigset_t endingSignals() {
  sigset_t signals;
  sigemptyset(&signals);
  for (const int signal : {SIGINT, SIGTERM, SIGHUP}) sigaddset(&signals, signal);
  return signals;
}

void mask(int how) {
  const sigset_t signals = endingSignals();
  ::sigprocmask(how, &signals, nullptr);
}

}  // namespace

void runInProcesses(int count, int jobs, const std::function<int(int)>& task,
                    const std::function<bool(int, const ProcessEnd&)>& take) {
  hearOfEnds();
  Children children(task);
  std::map<int, ProcessEnd> ends;  // that wait for one before them
  for (int started = 0, taken = 0; taken < count;) {
    while (started < count && children.count() < jobs && children.start(started)) ++started;
    if (children.count() == 0) throw systemError(errno);
    children.read();
    children.collect(ends);
    for (auto next = ends.begin(); next != ends.end() && next->first == taken; next = ends.erase(next)) {
      if (!take(taken++, next->second)) return;
    }
  }
}

ProcessEnd runProgram(const std::vector<std::string>& words, std::string_view input) {
  constexpr int kNotFound = 127;
  const auto run = [&](int) {
    std::FILE* const file = std::tmpfile();
    if (file == nullptr) return kNotFound;
    const bool whole =
        std::fwrite(input.data(), 1, input.size(), file) == input.size() && std::fflush(file) == 0;
    if (!whole) return kNotFound;
    std::rewind(file);
    ::dup2(::fileno(file), STDIN_FILENO);
    std::vector<char*> arguments;
    for (const std::string& word : words) arguments.push_back(const_cast<char*>(word.c_str()));
    arguments.push_back(nullptr);
    ::execvp(arguments.front(), arguments.data());
    return kNotFound;
  };
  ProcessEnd result;
  runInProcesses(1, 1, run, [&](int, const ProcessEnd& end) {
    result = end;
    return true;
  });
  return result;
}

SignalHold::SignalHold() {
  mask(SIG_BLOCK);
}

SignalHold::~SignalHold() {
  mask(SIG_UNBLOCK);
}

}  // namespace vk
