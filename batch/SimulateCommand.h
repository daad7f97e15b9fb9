#pragma once

#include <optional>
#include <string>
#include <vector>

#include "batch/ModelChoice.h"
#include "batch/ParameterValues.h"

namespace vk {

/// `simulate`: synthetic data of a function and their fit. Settings that are left out are those of the form.
struct SimulateArguments {
  ModelArguments model;
  std::vector<EnteredValue> parameters;    ///< with a formula also its parameters, in their order
  std::string xmin, xmax, points, dy, dx;  ///< numbers as typed; empty when left out
  bool dyAbsolute = false, dxAbsolute = false;
  std::string seed;           ///< empty for the time of day
  std::string outputFile;     ///< where the data go; empty for nowhere
  std::optional<int> digits;  ///< of the data; by default those that data files have
  bool json = false;
};

/// Simulates, writes the data, fits them and prints the screen of the fit, or all as JSON. Gives 0, 1 when the
/// fit failed, or 2 when the settings are not reasonable, which is told. Bad arguments and bad files raise
/// `UsageError`.
int runSimulate(const SimulateArguments& arguments);

}  // namespace vk
