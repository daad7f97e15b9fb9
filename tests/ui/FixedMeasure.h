#pragma once

#include "ui/layout/TextMeasure.h"

namespace vk {

/// A font whose letters all have one size.
class FixedMeasure : public TextMeasure {
 public:
  explicit FixedMeasure(int width = 120, int height = 240) : width_(width), height_(height) {}
  int width(std::string_view text) const override { return width_ * static_cast<int>(text.size()); }
  int height() const override { return height_; }

 private:
  int width_, height_;
};

}  // namespace vk
