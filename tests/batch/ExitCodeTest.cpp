#include "batch/ExitCode.h"

#include <new>

#include "base/RuntimeError.h"
#include "batch/TerminalPorts.h"

namespace vk {
namespace {

/// What a command that throws gives and tells.
template <class Thrown>
std::pair<int, std::string> endOf(const Thrown& thrown) {
  testing::internal::CaptureStderr();
  const int code = exitCodeOf("fit", [&]() -> int { throw thrown; });
  return {code, testing::internal::GetCapturedStderr()};
}

using Told = std::pair<int, std::string>;

TEST(ExitCode, IsThatOfTheCommand) {
  EXPECT_EQ(exitCodeOf("fit", [] { return 0; }), 0);
  EXPECT_EQ(exitCodeOf("fit", [] { return 1; }), 1);
}

TEST(ExitCode, NoExceptionEscapes) {
  EXPECT_EQ(endOf(RuntimeError(kOverflow)), Told(1, "fit: Overflow\n"));
  EXPECT_EQ(endOf(std::bad_alloc()), Told(1, "fit: Memoria esaurita\n"));
  EXPECT_EQ(endOf(std::runtime_error("")), Told(1, "fit: Errore definito dall'applicazione\n"));
  EXPECT_EQ(endOf(UsageError("a.dat: accesso negato")), Told(2, "a.dat: accesso negato\n"));
}

}  // namespace
}  // namespace vk
