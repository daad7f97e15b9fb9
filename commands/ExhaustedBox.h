#pragma once

#include "numeric/Fault.h"
#include "platform/Dialogs.h"
#include "session/Session.h"

namespace vk {

/// Tells in a box that the gamma function does not converge. A command asks for it at thousands of points: the box
/// comes once, which the session keeps until the next command.
class ExhaustedBox : public EvaluationListener {
 public:
  ExhaustedBox(Session& session, Dialogs& dialogs) : told_(session.GammaTold), dialogs_(dialogs) {}
  void exhausted(Kernel kernel) override {
    if (kernel == Kernel::kBetaFraction) return;
    if (told_ == kFalse) dialogs_.plainBox("D_X2", "Errori nel Calcolo della Funzione");
    told_ = kTrue;
  }

 private:
  Flag& told_;
  Dialogs& dialogs_;
};

}  // namespace vk
