#pragma once

#include "commands/ExhaustedBox.h"
#include "session/Session.h"

namespace vk {

/// The current model function at a point, as a command asks for it: `ErrFlag` is -1 where it failed, else 0.
inline double EvaluateFunction(Session& session, EvaluationListener& listener, double x) {
  const Evaluation found = session.analysis.model.at(x, session.analysis.par.ParValues, listener);
  session.ErrFlag = toFlag(found.fault != Fault::kNone);
  return found.value;
}

/// The same as the only step of a command.
inline double EvaluateFunction(Session& session, Dialogs& dialogs, double x) {
  ExhaustedBox box(dialogs);
  return EvaluateFunction(session, box, x);
}

}  // namespace vk
