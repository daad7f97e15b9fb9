#include "session/SoundSignal.h"

namespace vk {

void SoundSignal(const DesktopSettings& settings, Sound& sound, Int16 code) {
  if (settings.BeepOn == kFalse) return;
  if (code == 0) sound.tone(settings.BeepFreqHigh, settings.BeepLenHigh);
  if (code == 1) sound.tone(settings.BeepFreqLow, settings.BeepLenLow);
}

}  // namespace vk
