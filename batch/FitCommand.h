#pragma once

#include <string>
#include <vector>

#include "batch/Assignment.h"

namespace vk {

/// A parameter of the command line with its starting value.
struct StartValue {
  Assignment assignment;
  bool fixed = false;
};

/// `fit`: one fit of a data file.
struct FitArguments {
  std::string dataFile;
  std::string function;      ///< formula in x; its parameters are those of `parameters`, in their order
  std::string catalogue;     ///< "f,g": numbers of the outer and the inner function, from 1
  std::string functionFile;  ///< a function file ...
  int entry = 0;             ///< ... and its entry, from 1
  std::vector<StartValue> parameters;
  bool json = false;
};

/// Runs the fit and prints the report, as text or as JSON. Gives 0, or 1 when the fit failed. Bad arguments
/// and bad files raise `UsageError`.
int runFit(const FitArguments& arguments);

}  // namespace vk
