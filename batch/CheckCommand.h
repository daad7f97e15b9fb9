#pragma once

#include <string>

namespace vk {

/// `check`: reads a data, grid, function or graphic file as the program would and prints its list of errors. The kind
/// is told by the ending of the name, of a stream by its content. Behind the errors of a data file stands their likely
/// cause with the command that cures it; what is odd about a good one is told on the error stream. Gives 0 for a good
/// file and 2 for one with errors.
int runCheck(const std::string& fileName);

}  // namespace vk
