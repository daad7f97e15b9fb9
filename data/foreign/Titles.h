#pragma once

#include <string>
#include <string_view>

namespace vk {

/// A text in UTF-8 as a title of a data set: signs that the text markup has become it, accented letters what is
/// typed for them without such keys ("a`"), and other characters "?".
std::string titleOfUtf8(std::string_view text);

}  // namespace vk
