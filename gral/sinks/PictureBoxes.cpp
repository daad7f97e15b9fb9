#include "gral/sinks/PictureBoxes.h"

#include <algorithm>

namespace vk {

std::vector<PictureBox> boxesOf(const Picture& picture) {
  std::vector<PictureBox> boxes;
  std::vector<std::size_t> above, present;  // the boxes that end in the row above and in this one
  const auto width = static_cast<std::size_t>(picture.width);
  for (int y = 0; y < picture.height; ++y) {
    const std::uint32_t* pixels = picture.pixels.data() + static_cast<std::size_t>(y) * width;
    auto candidate = above.begin();
    present.clear();
    for (int from = 0, to = 0; from < picture.width; from = to) {
      while (to < picture.width && pixels[to] == pixels[from]) ++to;
      if (pixels[from] == 0) continue;
      while (candidate != above.end() && boxes[*candidate].x < from) ++candidate;
      const bool goesOn = candidate != above.end() && boxes[*candidate].x == from &&
                          boxes[*candidate].width == to - from && boxes[*candidate].color == pixels[from];
      if (goesOn) {
        ++boxes[*candidate].height;
        present.push_back(*candidate);
      } else {
        present.push_back(boxes.size());
        boxes.push_back({from, y, to - from, 1, pixels[from]});
      }
    }
    std::swap(above, present);
  }
  return boxes;
}

}  // namespace vk
