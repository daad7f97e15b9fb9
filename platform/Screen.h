#pragma once

namespace vk {

/// The screen on which windows are placed. Lengths in twips.
class Screen {
 public:
  virtual ~Screen() = default;
  virtual int width() = 0;
  virtual int height() = 0;
  /// Nominal pixels: 15 twips each, whatever the density of the screen.
  virtual int TwipsPerPixelX() = 0;
  virtual int TwipsPerPixelY() = 0;
};

}  // namespace vk
