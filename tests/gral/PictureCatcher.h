#pragma once

#include <vector>

#include "gral/sinks/LineWriter.h"

namespace vk {

/// Keeps pictures, and says which floods reach it.
class PictureCatcher : public LineWriter {
 public:
  std::vector<Picture> pictures;
  std::vector<TwipPoint> corners;
  void picture(const Picture& picture, const TwipPoint& corner) override {
    pictures.push_back(picture);
    corners.push_back(corner);
    LineWriter::picture(picture, corner);
  }
};

}  // namespace vk
