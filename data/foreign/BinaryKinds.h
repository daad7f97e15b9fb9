#pragma once

#include <string_view>

namespace vk {

/// Raises `Refusal` for a file that its first bytes show to be of another kind than a table in plain text.
void refuseOtherKinds(std::string_view bytes);

}  // namespace vk
