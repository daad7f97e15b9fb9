#pragma once

#include <string_view>

namespace vk {

/// What the first bytes show a file to be that is no plain text: "un'immagine". Empty for any other.
std::string_view nameOfOtherKind(std::string_view bytes);

/// Raises `Refusal` for a file that its first bytes show to be of another kind than a table in plain text.
void refuseOtherKinds(std::string_view bytes);

}  // namespace vk
