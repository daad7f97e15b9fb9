#pragma once

#include <string>

namespace vk {

/// `check`: reads a data, function or graphic file as the program would and prints its list of errors. The kind
/// is told by the ending of the name. Gives 0 for a good file and 2 for one with errors.
int runCheck(const std::string& fileName);

}  // namespace vk
