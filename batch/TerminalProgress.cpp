#include "batch/TerminalProgress.h"

#include <iostream>

#include "platform/system/Terminal.h"

namespace vk {

TerminalProgress::TerminalProgress(FitObserver& screen)
    : screen_(screen), visible_(errorStreamIsTerminal()) {}

void TerminalProgress::progress(const FitProgress& progress) {
  screen_.progress(progress);
  if (!visible_) return;
  std::clog << "\rIter. " << progress.iteration << std::flush;
  written_ = true;
}

void TerminalProgress::finished(const FitFinal& final) {
  clearLine();
  screen_.finished(final);
}

// The screen may tell of the failure first, as of all that happened before.
void TerminalProgress::failed(const FitFailure& failure) {
  screen_.failed(failure);
  clearLine();
}

void TerminalProgress::clearLine() {
  if (written_) std::clog << "\r\x1B[K" << std::flush;
  written_ = false;
}

}  // namespace vk
