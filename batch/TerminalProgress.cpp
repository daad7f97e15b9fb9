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

// The screen would number what is to be told by name.
void TerminalProgress::failed(const FitFailure& failure) {
  clearLine();
  failure_ = failure;
}

void TerminalProgress::clearLine() {
  if (written_) std::clog << "\r\x1B[K" << std::flush;
  written_ = false;
}

}  // namespace vk
