#pragma once

#include <string>

#include "analysis/Fit.h"

namespace vk {

/// A fit that has ended, failed or not, with all that it was made of: the session goes on to other data.
struct FitRecord {
  std::string functionText;  ///< code page 437
  DataSet data;
  Model model;
  ParameterSet start;  ///< with the values that the fit began with
  FitResult result;
};

}  // namespace vk
