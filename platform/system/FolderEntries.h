#pragma once

#include <optional>
#include <string>
#include <vector>

namespace vk {

/// The names of all that a folder holds, in no order; none where it cannot be listed.
///
/// The iterators of the standard library end the program where memory is exhausted.
std::optional<std::vector<std::string>> entriesOf(const std::string& folder);

}  // namespace vk
