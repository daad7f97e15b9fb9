#pragma once

#include "platform/Process.h"
#include "platform/Screen.h"
#include "platform/Sound.h"

/// Sound, programs and screen of the desktop.
namespace vk {

/// The desktop has no tone generator: tones are dropped, the beep is the platform's.
class QtSound : public Sound {
 public:
  void tone(int, int) override {}
  void beep() override;
};

/// Programs that live on without this one.
class QtProcess : public Process {
 public:
  bool start(const std::string& program) override;
};

/// The main screen of the desktop.
class QtScreen : public Screen {
 public:
  int width() override;
  int height() override;
  int TwipsPerPixelX() override;
  int TwipsPerPixelY() override;
};

}  // namespace vk
