#include "platform/system/Terminal.h"

#include <gtest/gtest.h>
#include <pty.h>
#include <sys/wait.h>
#include <unistd.h>

namespace vk {
namespace {

/// What a process of its own finds; `child` is 0 inside it.
bool foundBy(pid_t child) {
  if (child == 0) ::_exit(belongsToTerminal() ? 1 : 0);
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

}  // namespace
}  // namespace vk
