#include "platform/system/Terminal.h"

#include <gtest/gtest.h>
#include <pty.h>
#include <sys/wait.h>
#include <unistd.h>

#include "platform/system/SystemFiles.h"

namespace vk {
namespace {

/// What a process of its own finds; `child` is 0 inside it.
bool foundBy(pid_t child, bool (*finds)() = belongsToTerminal) {
  if (child == 0) ::_exit(finds() ? 1 : 0);
  int status = -1;
  EXPECT_EQ(::waitpid(child, &status, 0), child);
  EXPECT_TRUE(WIFEXITED(status));
  return WEXITSTATUS(status) == 1;
}

TEST(Terminal, IsThatOfTheProcessWhereverItsStreamsLead) {
  int master = -1;
  const pid_t child = ::forkpty(&master, nullptr, nullptr, nullptr);
  if (child == 0) {
    for (const int stream : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO}) ::close(stream);
  }
  EXPECT_TRUE(foundBy(child));
  ::close(master);
}

TEST(Terminal, IsMissingInASessionThatHasNone) {
  const pid_t child = ::fork();
  if (child == 0) ::setsid();
  EXPECT_FALSE(foundBy(child));
}

TEST(Terminal, TellsItsColumns) {
  for (const std::uint16_t columns : {std::uint16_t{100}, std::uint16_t{0}}) {
    const winsize size{.ws_row = 25, .ws_col = columns, .ws_xpixel = 0, .ws_ypixel = 0};
    int master = -1;
    const pid_t child = ::forkpty(&master, nullptr, nullptr, &size);
    EXPECT_TRUE(foundBy(
        child, columns != 0 ? [] { return terminalColumns() == 100; }
                            : [] { return terminalColumns() == std::nullopt; }));
    ::close(master);
  }
}

TEST(Terminal, IsThatInWhichTheProgramWasStarted) {
  int master = -1;
  const pid_t child = ::forkpty(&master, nullptr, nullptr, nullptr);
  EXPECT_TRUE(foundBy(child, [] { return SystemFiles().startedAtTerminal() && errorStreamIsTerminal(); }));
  ::close(master);
}

}  // namespace
}  // namespace vk
