#pragma once

#include <string>

namespace vk {

/// Reduces a token text, innermost parentheses first, and appends the instructions to `code`. Anything that
/// can't be reduced ends the generation with false; what stands in `code` then has no meaning.
bool GenerateCode(const std::string& tokens, std::string& code);

}  // namespace vk
