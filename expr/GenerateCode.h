#pragma once

#include <string>

#include "base/Int16.h"

namespace vk {

/// Reduces a token text, innermost parentheses first, and appends the instructions to `code`. Anything that
/// can't be reduced sets the flag and ends the generation; what stands in `code` then has no meaning.
void GenerateCode(const std::string& tokens, std::string& code, Int16& flag);

}  // namespace vk
