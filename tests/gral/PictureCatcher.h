#pragma once

#include <vector>

#include "gral/sinks/LineWriter.h"

namespace vk {

/// Keeps pictures, and says which floods reach it.
class PictureCatcher : public LineWriter {
 public:
  std::vector<Picture> pictures;
  std::vector<double> places;
  void picture(const Picture& picture, double x, double y) override {
    pictures.push_back(picture);
    places.insert(places.end(), {x, y});
    LineWriter::picture(picture, x, y);
  }
};

}  // namespace vk
