#pragma once

#include <gtest/gtest.h>

#include <string>

#include "expr/FormulaText.h"
#include "tests/analysis/FormulaModel.h"

namespace vk {

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
