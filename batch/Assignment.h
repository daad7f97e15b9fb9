#pragma once

#include <string>
#include <vector>

namespace vk {

/// "name=value" of a command line.
struct Assignment {
  std::string name;  ///< code page 437
  double value = 0;
};

/// Raises `UsageError` where the "=" is missing, the name is none or more than one, or the value is no number.
Assignment parseAssignment(const std::string& argument);
/// The same for each of the arguments; no name may come twice.
std::vector<Assignment> parseAssignments(const std::vector<std::string>& arguments);

}  // namespace vk
