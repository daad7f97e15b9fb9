#pragma once

#include <string>
#include <vector>

#include "expr/CmpMod.h"

namespace vk {

/// Makes a pair of the catalogue current, with these parameters.
inline void setFunction(Session& session, int inner, int outer, const std::vector<double>& parameters) {
  session.analysis.fun.InnerIndex = inner;
  session.analysis.fun.OuterIndex = outer;
  const int count = static_cast<int>(parameters.size());
  session.analysis.par.ParCount = count;
  session.analysis.par.ParValues.dim(count);
  for (int i = 1; i <= count; ++i)
    session.analysis.par.ParValues[i] = parameters[static_cast<std::size_t>(i - 1)];
}

/// Compiles the formula of a loaded inner function of x.
inline void compileModel(Session& session, const std::string& parameters, const std::string& formula) {
  Int16 flag;
  CompileExpression(session, "y@x@" + parameters + "@ @" + formula, session.analysis.model, flag);
  EXPECT_EQ(flag, 0) << formula;
}

}  // namespace vk
