#pragma once

#include "base/Int16.h"
#include "platform/FontSpec.h"

namespace vk {

/// Settings of the desktop.
struct DesktopSettings {
  Flag ShowErrors;  ///< full lists of errors instead of short messages
  Int16 BackImage, BackImageSaved;

  Flag BeepOn = kTrue;
  Int16 BeepFreqLow = 500, BeepFreqHigh = 1000;  ///< Hz
  Int16 BeepLenLow = 1, BeepLenHigh = 1;         ///< ms

  FontSpec FontLabel{"Arial", 9};
  FontSpec FontEdit{"Courier New", 10};
};

}  // namespace vk
