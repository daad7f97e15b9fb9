#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

#include "analysis/ParameterSet.h"
#include "base/Text.h"
#include "expr/Catalogue.h"
#include "expr/Compiler.h"
#include "expr/FormulaText.h"
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

/// A formula in x as a model function. `names` is the comma list of its parameters.
inline Model modelOf(const std::string& formula, const std::string& names) {
  const Compilation compiled = compile("y@x@" + names + "@ @" + formula);
  EXPECT_TRUE(compiled.ok) << compiled.report;
  return {kBuiltInInner + 1, 1, compiled.code};
}

/// A model function with its parameters.
class ModelTest : public testing::Test {
 protected:
  void load(const std::string& names, const std::string& formula) {
    model = modelOf(formula, names);
    par = parametersOf(splitItems(names));
  }
  /// y = bx+c.
  void loadLine() {
    model = Model(2, 1);
    par = parametersOf({"b", "c"});
  }
  /// y = c.
  void loadConstant() {
    model = Model(1, 1);
    par = parametersOf({"c"});
  }
  /// Value and error of a variable; 0 is the independent one.
  void set(int i, double value, double error) {
    par.ParValues[i] = value;
    par.ParDeltas[i] = error;
  }

  Model model;
  ParameterSet par;
  NoListener listener;
};

}  // namespace vk
