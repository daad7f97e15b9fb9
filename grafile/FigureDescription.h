#pragma once

#include <string>
#include <string_view>

#include "gral/FigureSheet.h"

namespace vk {

/// What a graphic file shows, in words: axes with their limits, data, functions, keys. A title in it is that of the
/// figure, else `title`, in UTF-8, is. Lines that cannot be drawn are passed over.
FigureWords describeFigure(std::string_view text, const std::string& title);

}  // namespace vk
