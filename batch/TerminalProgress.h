#pragma once

#include "analysis/Fit.h"

namespace vk {

/// Passes a fit that goes well on to its screen and, where a person looks on, shows the iterations on the error stream.
class TerminalProgress : public FitObserver {
 public:
  explicit TerminalProgress(FitObserver& screen);

  void started(const FitStart& start) override { screen_.started(start); }
  void progress(const FitProgress& progress) override;
  void finished(const FitFinal& final) override;
  void working() override { screen_.working(); }
  void failed(const FitFailure& failure) override;

  /// Of the fit that ended so.
  const FitFailure& failure() const { return failure_; }

 private:
  void clearLine();

  FitObserver& screen_;
  bool visible_;
  bool written_ = false;
  FitFailure failure_;
};

}  // namespace vk
