#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string>

namespace vk {

/// Pixels, 0xRRGGBB row by row from the top, as the sixels that some terminals show. Nothing where the library that
/// makes them is missing or refuses; it is loaded here for the first time.
std::optional<std::string> sixelsOf(std::span<const std::uint32_t> pixels, int width, int height);

}  // namespace vk
