#include "session/SoundSignal.h"

#include "doubles/Doubles.h"
#include "session/Session.h"

namespace vk {
namespace {

TEST(SoundSignal, CodeZeroIsHighAndCodeOneIsLow) {
  const Session session;
  RecordingSound sound;
  SoundSignal(session.settings, sound, 0);
  SoundSignal(session.settings, sound, 1);
  SoundSignal(session.settings, sound, 2);
  SoundSignal(session.settings, sound, -1);
  EXPECT_EQ(sound.tones, (std::vector<RecordingSound::Tone>{{1000, 1}, {500, 1}}));
}

TEST(SoundSignal, IsSilentWithTheBeepSwitchOff) {
  Session session;
  session.settings.BeepOn = kFalse;
  RecordingSound sound;
  SoundSignal(session.settings, sound, 0);
  SoundSignal(session.settings, sound, 1);
  EXPECT_TRUE(sound.tones.empty());
}

}  // namespace
}  // namespace vk
