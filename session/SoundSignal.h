#pragma once

#include "platform/Sound.h"
#include "session/DesktopSettings.h"

namespace vk {

/// Sounds the tone of a code: 0 high, 1 low, others nothing; nothing at all when the beep switch is off.
void SoundSignal(const DesktopSettings& settings, Sound& sound, Int16 code);

}  // namespace vk
