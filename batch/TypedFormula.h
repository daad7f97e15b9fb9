#pragma once

#include <string>
#include <vector>

namespace vk {

/// Refuses a formula of the command line that the language takes in a sense that nobody means, as "2x" for 2: raises
/// `UsageError` with the formula and, below its place, what is wrong. The formula compiles; `names` have values in it.
void refuseDoubtful(const std::string& formula, const std::vector<std::string>& names);

}  // namespace vk
