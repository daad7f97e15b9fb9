#pragma once

#include <string>

#include "platform/Random.h"

namespace vk {

/// Seeds a generator with the number of a text, or with the time of day where the text is empty, and gives the seed.
/// Another text raises `UsageError`.
float seedFrom(const std::string& text, Random& random);

}  // namespace vk
