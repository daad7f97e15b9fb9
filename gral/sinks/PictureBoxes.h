#pragma once

#include <vector>

#include "gral/DeviceTypes.h"

namespace vk {

/// Pixels of one colour, from the top left corner of a picture.
struct PictureBox {
  int x, y, width, height;
  std::uint32_t color;
  bool operator==(const PictureBox&) const = default;
};

/// A picture as boxes, one below the other where rows are alike. Pixels that are missing are in none.
std::vector<PictureBox> boxesOf(const Picture& picture);

}  // namespace vk
