#include "batch/TerminalProgress.h"

#include <fcntl.h>
#include <gmock/gmock.h>
#include <unistd.h>

#include <cstdlib>

namespace vk {
namespace {

/// The screen of a fit as the list of what it is told.
class ToldScreen : public FitObserver {
 public:
  void started(const FitStart&) override { told += "started "; }
  void progress(const FitProgress&) override { told += "progress "; }
  void finished(const FitFinal&) override { told += "finished "; }
  void failed(const FitFailure&) override { told += "failed "; }
  std::string told;
};

/// Puts another file behind the error stream while it lives.
class ErrorStreamTo {
 public:
  explicit ErrorStreamTo(int descriptor) : before_(dup(STDERR_FILENO)) { dup2(descriptor, STDERR_FILENO); }
  ~ErrorStreamTo() {
    dup2(before_, STDERR_FILENO);
    close(before_);
  }

 private:
  int before_;
};

/// A fit of two iterations that ends well or not.
void runFit(FitObserver& observer, bool well) {
  const Array<double> values(1);
  const CorrelationMatrix correlation;
  const FitProgress second{.iteration = 2, .reducedChiSquare = {}, .confidence = {}, .X = values};
  observer.progress({.iteration = 1, .reducedChiSquare = {}, .confidence = {}, .X = values});
  observer.progress(second);
  if (well)
    observer.finished({.progress = second, .errors = values, .correlation = correlation});
  else
    observer.failed({});
}

/// What comes through until the other end is closed; it may come in pieces.
std::string everythingFrom(int descriptor) {
  std::string bytes;
  char piece[100];
  for (ssize_t count = 0; (count = read(descriptor, piece, sizeof piece)) > 0;)
    bytes.append(piece, static_cast<std::size_t>(count));
  return bytes;
}

TEST(TerminalProgress, ShowsIterationsInOneLineOfATerminalAndTakesThemAway) {
  const int reader = posix_openpt(O_RDWR | O_NOCTTY);
  ASSERT_GE(reader, 0);
  ASSERT_EQ(grantpt(reader), 0);
  ASSERT_EQ(unlockpt(reader), 0);
  const int terminal = open(ptsname(reader), O_RDWR | O_NOCTTY);
  ASSERT_GE(terminal, 0);
  ToldScreen screen;
  {
    const ErrorStreamTo shown(terminal);
    TerminalProgress progress(screen);
    runFit(progress, true);
  }
  close(terminal);
  EXPECT_EQ(everythingFrom(reader), "\rIter. 1\rIter. 2\r\x1B[K");
  EXPECT_EQ(screen.told, "progress progress finished ");
  close(reader);
}

TEST(TerminalProgress, IsSilentWhereNobodyLooksOnAndKeepsAFailureFromTheScreen) {
  testing::internal::CaptureStderr();
  ToldScreen screen;
  TerminalProgress progress(screen);
  runFit(progress, false);
  EXPECT_EQ(testing::internal::GetCapturedStderr(), "");
  EXPECT_EQ(screen.told, "progress progress ");
}

}  // namespace
}  // namespace vk
