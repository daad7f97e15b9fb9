#pragma once

#include <optional>
#include <string>

namespace vk {

/// `transform`: formulas over the columns of a data file. What is left out, or empty, stays as it is.
struct TransformArguments {
  std::string dataFile;
  std::string titleX, titleY;
  std::string x, y, dx, dy;
  std::string outputFile;     ///< where the data go; empty for standard output
  std::optional<int> digits;  ///< of the data; by default those that data files have
  bool json = false;
  bool anyway = false;  ///< write also when a formula failed in some rows
  bool trace = false;   ///< tell also what the compiler reports
};

/// Transforms the data and writes them as a data file, or as JSON. Gives 0. Rows whose formula cannot be computed
/// are told with their numbers and give 1; nothing is written then, unless it is wanted anyway. Bad formulas
/// and other bad arguments, and bad files, raise `UsageError`.
int runTransform(const TransformArguments& arguments);

}  // namespace vk
