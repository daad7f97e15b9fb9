#pragma once

#include "gral/sinks/RasterSink.h"

namespace vk {

/// Letters that are filled boxes, half as wide as high, without their lowest tenth; what was asked for is
/// kept.
class BlockLetters : public GlyphSource {
 public:
  double advance(bool, unsigned char code) override { return code == ' ' ? 0.25 : 0.5; }
  double lineHeight(bool) override { return 1; }
  double ascent(bool) override { return 0.9; }
  const GlyphMask& glyph(bool symbol, unsigned char code, double pixels, double angle,
                         const PixelRect&) override {
    asked.push_back({symbol, code, pixels, angle});
    mask_ = {0, 0, static_cast<int>(pixels / 2), static_cast<int>(pixels * 0.9), {}};
    mask_.pixels.assign(static_cast<std::size_t>(mask_.width) * static_cast<std::size_t>(mask_.height), 1);
    return mask_;
  }

  struct Asked {
    bool symbol;
    unsigned char code;
    double pixels, angle;
    bool operator==(const Asked&) const = default;
  };
  std::vector<Asked> asked;

 private:
  GlyphMask mask_;
};

}  // namespace vk
