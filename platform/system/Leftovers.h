#pragma once

#include <string>
#include <string_view>

namespace vk {

/// The temporary files of saves have names that begin so.
inline constexpr std::string_view kTemporaryStart = ".vor_kel-";

/// Removes from a folder the temporary files of saves that never came to their end: those older than a day that no
/// save holds locked. What cannot be removed stays.
void removeLeftovers(const std::string& folder);

}  // namespace vk
