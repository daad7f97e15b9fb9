#pragma once

#include "platform/Screen.h"

namespace vk {

/// A screen of nominal pixels, for drawings without a window system.
class NominalScreen : public Screen {
 public:
  int width() override { return kColumns * kTwips; }
  int height() override { return kRows * kTwips; }
  int TwipsPerPixelX() override { return kTwips; }
  int TwipsPerPixelY() override { return kTwips; }

 private:
  static constexpr int kTwips = 15;
  static constexpr int kColumns = 1024;
  static constexpr int kRows = 768;
};

}  // namespace vk
