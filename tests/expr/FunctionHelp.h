#pragma once

#include <string>
#include <vector>

#include "expr/CompileHelp.h"
#include "expr/Model.h"

namespace vk {

/// Parameters as a table 0..K.
inline Array<double> parametersOf(const std::vector<double>& values) {
  Array<double> table(static_cast<int>(values.size()));
  for (int i = 1; i <= table.upper(); ++i) table[i] = values[static_cast<std::size_t>(i - 1)];
  return table;
}

/// The formula of a loaded inner function of x.
inline CompiledExpression formulaOf(const std::string& parameters, const std::string& formula) {
  const Compiled result = compiled("y@x@" + parameters + "@ @" + formula);
  EXPECT_EQ(result.flag, 0) << formula;
  return result.expression;
}

}  // namespace vk
