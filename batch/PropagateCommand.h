#pragma once

#include <optional>
#include <string>
#include <vector>

#include "batch/ModelChoice.h"
#include "batch/ParameterValues.h"

namespace vk {

/// `propagate`: the error of a function by derivatives and by simulation.
struct PropagateArguments {
  ModelArguments model;
  std::string fitResult;  ///< the file of a result of `fit` with correlated parameters; empty for none
  std::vector<EnteredValue>
      variables;              ///< independent ones; with a formula also its parameters, in their order
  std::string seed;           ///< empty for the time of day
  std::string histogramFile;  ///< where the histogram goes as a data file; empty for nowhere
  std::optional<int> digits;  ///< of the histogram; by default those that it has
  bool json = false;
};

/// "name=value" or "name=value,error"; anything else raises `UsageError`.
EnteredValue parseValueWithError(const std::string& argument);

/// Propagates the errors and prints the screen, or the result as JSON. Gives 0, or 1 when the propagation
/// failed. Bad arguments and bad files raise `UsageError`.
int runPropagate(const PropagateArguments& arguments);

}  // namespace vk
