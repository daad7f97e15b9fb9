#pragma once

#include "expr/Model.h"
#include "platform/Dialogs.h"
#include "session/Session.h"

namespace vk {

/// Tells in a box, once in a command, that the gamma function does not converge.
class ExhaustedBox : public EvaluationListener {
 public:
  ExhaustedBox(Session& session, Dialogs& dialogs) : session_(session), dialogs_(dialogs) {}
  void exhausted(Kernel kernel) override {
    if (kernel == Kernel::kBetaFraction) return;
    if (session_.GammaTold == kFalse) dialogs_.plainBox("D_X2", "Errori nel Calcolo della Funzione");
    session_.GammaTold = kTrue;
  }

 private:
  Session& session_;
  Dialogs& dialogs_;
};

/// The model function of the session.
inline Model modelOf(const AnalysisState& analysis) {
  return {analysis.fun.InnerIndex, analysis.fun.OuterIndex, analysis.model};
}

}  // namespace vk
