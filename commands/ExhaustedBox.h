#pragma once

#include "numeric/Fault.h"
#include "platform/Dialogs.h"
#include "platform/Texts.h"

namespace vk {

/// Tells in a box that the gamma function does not converge. A command asks for it at thousands of points: the box
/// comes once, so that a command has one such object for all its steps.
class ExhaustedBox : public EvaluationListener {
 public:
  explicit ExhaustedBox(Dialogs& dialogs) : dialogs_(dialogs) {}
  void exhausted(Kernel kernel) override {
    if (kernel == Kernel::kBetaFraction) return;
    if (!shown_) dialogs_.plainBox("D_X2", kCalculationFailed);
    shown_ = true;
  }

 private:
  Dialogs& dialogs_;
  bool shown_ = false;
};

}  // namespace vk
