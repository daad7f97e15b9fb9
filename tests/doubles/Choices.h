#pragma once

#include "commands/FunctionChoice.h"

namespace vk {

/// Selects a pair of the catalogue and accepts it, as the user does in `Sel_Fun`.
inline void choose(Session& session, int inner, int outer) {
  const FunctionDef before = session.analysis.fun;
  session.analysis.fun.InnerIndex = inner;
  session.analysis.fun.OuterIndex = outer;
  TakeFunction(session, before.InnerIndex, before.OuterIndex);
}

}  // namespace vk
