#pragma once

#include "commands/FunctionChoice.h"
#include "expr/Compiler.h"

namespace vk {

/// An entry of a function file, compiled as its reader does.
inline FunctionFile::Entry compiledEntry(const std::string& parameters, const std::string& definition,
                                         const std::string& description) {
  return {parameters, definition, description, compileFunction(parameters, definition).code};
}

/// Selects a pair of the catalogue and accepts it, as the user does in `Sel_Fun`.
inline void choose(Session& session, int inner, int outer) {
  const FunctionDef before = session.analysis.fun;
  session.analysis.fun.InnerIndex = inner;
  session.analysis.fun.OuterIndex = outer;
  TakeFunction(session, before.InnerIndex, before.OuterIndex);
}

}  // namespace vk
