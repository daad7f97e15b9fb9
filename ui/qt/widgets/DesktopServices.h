#pragma once

#include "platform/Process.h"
#include "platform/Sound.h"

/// Sound and programs of the desktop.
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
  bool show(const std::string& path, const std::string& heading) override;
};

}  // namespace vk
