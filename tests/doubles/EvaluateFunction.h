#pragma once

#include "commands/ExhaustedBox.h"

namespace vk {

/// The current model function at a point, as a command asks for it: `ErrFlag` is -1 where it failed, else 0.
inline double EvaluateFunction(Session& session, Dialogs& dialogs, double x) {
  ExhaustedBox box(session, dialogs);
  const Evaluation found = session.analysis.model.at(x, session.analysis.par.ParValues, box);
  session.ErrFlag = toFlag(found.fault != Fault::kNone);
  return found.value;
}

}  // namespace vk
