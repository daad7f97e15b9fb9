#include "session/SoundSignal.h"

#include "doubles/Doubles.h"

namespace vk {
namespace {

TEST(SoundSignal, CodeZeroIsHighAndCodeOneIsLow) {
  const Session session;
  RecordingSound sound;
  SoundSignal(session, sound, 0);
  SoundSignal(session, sound, 1);
  SoundSignal(session, sound, 2);
  SoundSignal(session, sound, -1);
  EXPECT_EQ(sound.tones, (std::vector<RecordingSound::Tone>{{1000, 1}, {500, 1}}));
}

TEST(SoundSignal, IsSilentWithTheBeepSwitchOff) {
  Session session;
  session.settings.BeepOn = kFalse;
  RecordingSound sound;
  SoundSignal(session, sound, 0);
  SoundSignal(session, sound, 1);
  EXPECT_TRUE(sound.tones.empty());
}

}  // namespace
}  // namespace vk
