#pragma once

#include "ui/layout/TextMeasure.h"

namespace vk {

/// A font whose letters all have one size.
class FixedMeasure : public TextMeasure {
 public:
  explicit FixedMeasure(int width = 120, int height = 240) : width_(width), height_(height) {}
  Twips width(std::string_view text) const override {
    return Twips(width_ * static_cast<double>(text.size()));
  }
  Twips height() const override { return Twips(height_); }

 private:
  int width_, height_;
};

}  // namespace vk
