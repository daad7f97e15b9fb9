#pragma once

#include <algorithm>
#include <stdexcept>
#include <string>
#include <vector>

#include "analysis/ParameterSet.h"
#include "base/Text.h"
#include "expr/Catalogue.h"
#include "expr/Compiler.h"
#include "expr/Model.h"

namespace vk {

/// Parameters of these names, all zero and constant.
inline ParameterSet parametersOf(const std::vector<std::string>& names) {
  ParameterSet par;
  par.ParNames = "    y    x";
  par.ParCount = static_cast<int>(names.size());
  par.ParNameWidth = 1;
  for (const std::string& name : names) {
    par.ParNames += repeat(kNameSlot - length(name), ' ') + name;
    par.ParNameWidth = std::max<int>(par.ParNameWidth, length(name));
  }
  StoreParameters(par, std::vector<double>(names.size() + 1), std::vector<double>(names.size() + 1), 0);
  return par;
}

/// A formula in x as a model function. `names` is the comma list of its parameters. std::invalid_argument for a
/// formula with an error.
inline Model modelOf(const std::string& formula, const std::string& names) {
  const Compilation compiled = compile("y@x@" + names + "@ @" + formula);
  if (!compiled.ok) throw std::invalid_argument(compiled.report);
  return {kBuiltInInner + 1, 1, compiled.code};
}

}  // namespace vk
