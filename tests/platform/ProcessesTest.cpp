#include "platform/system/Processes.h"

#include <gmock/gmock.h>
#include <signal.h>
#include <unistd.h>

#include <cerrno>
#include <chrono>
#include <csignal>
#include <iostream>
#include <thread>
#include <vector>

#include "base/RuntimeError.h"
#include "doubles/ErrorOf.h"
#include "doubles/ResourceLimit.h"
#include "faults/SystemCalls.h"
#include "platform/system/SystemFiles.h"

namespace vk {
namespace {

using ::testing::ElementsAre;

/// What the processes left, in the order in which it was taken.
std::vector<ProcessEnd> endsOf(int count, int jobs, const std::function<int(int)>& task) {
  std::vector<ProcessEnd> ends;
  runInProcesses(count, jobs, task, [&](int number, const ProcessEnd& end) {
    EXPECT_EQ(number, static_cast<int>(ends.size()));
    ends.push_back(end);
    return true;
  });
  return ends;
}

int tell(int number) {
  std::cout << "out " << number;
  std::cerr << "err " << number;
  return number;
}

TEST(Processes, GiveWhatTheyWriteAndTheirExitCodes) {
  const std::vector<ProcessEnd> ends = endsOf(3, 2, tell);
  ASSERT_EQ(ends.size(), 3u);
  for (int i = 0; i < 3; ++i) {
    const ProcessEnd& end = ends[static_cast<std::size_t>(i)];
    EXPECT_EQ(end.output, "out " + std::to_string(i));
    EXPECT_EQ(end.errors, "err " + std::to_string(i));
    EXPECT_EQ(end.exitCode, i);
    EXPECT_EQ(end.signal, 0);
  }
}

TEST(Processes, KeepTheOrderWhereTheFirstIsTheSlowest) {
  const auto ends = endsOf(6, 3, [](int number) {
    std::this_thread::sleep_for(std::chrono::milliseconds(number == 0 ? 60 : 1));
    return tell(number);
  });
  std::vector<int> codes;
  for (const ProcessEnd& end : ends) codes.push_back(end.exitCode);
  EXPECT_THAT(codes, ElementsAre(0, 1, 2, 3, 4, 5));
}

TEST(Processes, GiveMoreThanAPipeHolds) {
  const std::string much(1'000'000, 'x');
  const auto ends = endsOf(2, 2, [&](int) {
    std::cerr << much;
    std::cout << much;
    return 0;
  });
  ASSERT_EQ(ends.size(), 2u);
  EXPECT_EQ(ends[1].output, much);
  EXPECT_EQ(ends[1].errors, much);
}

TEST(Processes, OneThatIsKilledTakesNoOtherWithIt) {
  const auto ends = endsOf(3, 1, [](int number) {
    if (number == 1) ::raise(SIGKILL);
    return tell(number);
  });
  ASSERT_EQ(ends.size(), 3u);
  EXPECT_EQ(ends[1].signal, SIGKILL);
  EXPECT_EQ(ends[1].output, "");
  EXPECT_EQ(ends[2].output, "out 2");
}

TEST(Processes, OneWhoseTaskThrowsEndsThere) {
  const auto ends = endsOf(2, 1, [](int number) {
    if (number == 0) throw std::bad_alloc();
    return tell(number);
  });
  ASSERT_EQ(ends.size(), 2u);
  EXPECT_EQ(ends[0].signal, SIGABRT);
  EXPECT_EQ(ends[1].output, "out 1");
}

TEST(Processes, NoneGoOnWhenNothingMoreIsTaken) {
  int taken = 0;
  runInProcesses(
      4, 4,
      [](int number) {
        if (number > 0) std::this_thread::sleep_for(std::chrono::seconds(60));
        return 0;
      },
      [&](int, const ProcessEnd&) { return ++taken < 1; });
  EXPECT_EQ(taken, 1);
}

TEST(Processes, FewerRunAtOnceWhereTheSystemHasNoMoreFiles) {
  const ResourceLimit few(RLIMIT_NOFILE, 20);
  EXPECT_EQ(endsOf(40, 40, tell).size(), 40u);
  // The sanitizer opens a file when the library makes an object of a type for the first time.
  EXPECT_THROW(SystemFiles().readAll("/no/such/file"), RuntimeError);
  const ResourceLimit none(RLIMIT_NOFILE, 3);
  EXPECT_THROW(endsOf(1, 1, tell), RuntimeError);
}

TEST(Processes, ASignalToTheirParentBreaksNothingOff) {
  static volatile std::sig_atomic_t came;
  came = 0;
  struct sigaction counted {
  }, before{};
  counted.sa_handler = [](int) { came = came + 1; };
  ASSERT_EQ(::sigaction(SIGUSR1, &counted, &before), 0);
  // The first comes while it waits for the output, the second while it waits for the end.
  const ProcessEnd end = runProgram({"sh", "-c",
                                     "sleep 0.05; kill -USR1 $PPID; sleep 0.05; echo said; exec >&- 2>&-; "
                                     "sleep 0.05; kill -USR1 $PPID; sleep 0.05; exit 3"});
  ::sigaction(SIGUSR1, &before, nullptr);
  EXPECT_EQ(came, 2);
  EXPECT_EQ(end.output, "said\n");
  EXPECT_EQ(end.exitCode, 3);
}

TEST(Processes, GiveTheirExitCodesAlsoWhereTheProgramIsStartedDeafToTheirEnds) {
  void (*const before)(int) = std::signal(SIGCHLD, SIG_IGN);
  const auto ends = endsOf(2, 1, tell);
  std::signal(SIGCHLD, before);
  EXPECT_EQ(ends[1].exitCode, 1);
}

TEST(Processes, WhoseOutputCannotBeReadAreAnErrorAndASignalIsNone) {
  {
    const SystemCalls calls(SystemCalls::kPipes, {{1, EINTR, "read"}});
    EXPECT_EQ(endsOf(1, 1, tell)[0].output, "out 0");
    EXPECT_EQ(calls.failed().size(), 1U);
  }
  const SystemCalls calls(SystemCalls::kPipes, {{1, EIO, "read"}});
  EXPECT_EQ(errorOf([] { endsOf(1, 1, tell); }), kDeviceIoError);
}

TEST(SignalHold, LetsAnEndingSignalThroughAfterwards) {
  const auto ends = endsOf(1, 1, [](int) {
    std::signal(SIGINT, SIG_DFL);  // which a shell ignores in its background
    {
      const SignalHold whole;
      ::raise(SIGINT);
      std::cout << "whole line\n" << std::flush;
    }
    return 0;
  });
  EXPECT_EQ(ends[0].output, "whole line\n");
  EXPECT_EQ(ends[0].signal, SIGINT);
}

TEST(Programs, TakeAnInputAndGiveTheirOutput) {
  const std::string input(200000, 'a');
  const ProcessEnd end = runProgram({"tr", "a", "b"}, input);
  EXPECT_EQ(end.exitCode, 0);
  EXPECT_EQ(end.output, std::string(200000, 'b'));
}

TEST(Programs, TellTheirErrorsAndThatTheyAreMissing) {
  const ProcessEnd end = runProgram({"sh", "-c", "echo said >&2; exit 3"});
  EXPECT_EQ(end.exitCode, 3);
  EXPECT_EQ(end.errors, "said\n");
  EXPECT_EQ(runProgram({"no-such-program-anywhere"}).exitCode, 127);
}

/// The exit code of a program with an input, where a resource is short.
int exitCodeWith(__rlimit_resource resource, rlim_t most) {
  const ResourceLimit limit(resource, most);
  int code = -1;
  const int error = errorOf([&] { code = runProgram({"true"}, std::string(10000, 'x')).exitCode; });
  return error == 0 ? code : -1;
}

TEST(Programs, WhoseInputFindsNoRoomAreNotRun) {
  void (*const before)(int) = std::signal(SIGXFSZ, SIG_IGN);
  for (const rlim_t room : {rlim_t{100}, rlim_t{9999}})
    EXPECT_EQ(exitCodeWith(RLIMIT_FSIZE, room), 127) << room;
  EXPECT_EQ(exitCodeWith(RLIMIT_FSIZE, 10000), 0);
  std::signal(SIGXFSZ, before);
  EXPECT_THROW(SystemFiles().readAll("/no/such/file"), RuntimeError);  // as above
  rlim_t files = 3;
  int code = -1;
  while (code == -1) code = exitCodeWith(RLIMIT_NOFILE, files++);
  EXPECT_EQ(code, 127);
}

}  // namespace
}  // namespace vk
