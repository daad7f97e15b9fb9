#pragma once

#include <span>
#include <string>
#include <string_view>

namespace vk {

/// The candidate that somebody may have meant by `word`, as it is written; empty when none is near. Capitals count
/// as small letters, and a letter that is wrong, missing, too many or in the other's place counts one: nearer than
/// every third letter it must be.
std::string nearWord(std::string_view word, std::span<const std::string> candidates);

}  // namespace vk
