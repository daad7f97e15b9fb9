#include "session/SoundSignal.h"

namespace vk {

void SoundSignal(const Session& session, Sound& sound, Int16 code) {
  if (session.settings.BeepOn == kFalse) return;
  if (code == 0) sound.tone(session.settings.BeepFreqHigh, session.settings.BeepLenHigh);
  if (code == 1) sound.tone(session.settings.BeepFreqLow, session.settings.BeepLenLow);
}

}  // namespace vk
