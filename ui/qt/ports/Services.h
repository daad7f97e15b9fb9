#pragma once

#include <QClipboard>

#include "platform/Clipboard.h"
#include "platform/Process.h"
#include "platform/Screen.h"
#include "platform/Sound.h"
#include "session/Session.h"

/// The small ports of the desktop.
namespace vk {

class QtClipboard : public Clipboard {
 public:
  explicit QtClipboard(const Session& session) : session_(session) {}
  void clear() override;
  void setText(const std::string& text) override;
  void setGrid(const CharGrid& grid) override;
  ClipboardText text() override;

 private:
  const Session& session_;
};

/// The desktop has no tone generator: tones are dropped, the beep is the platform's.
class QtSound : public Sound {
 public:
  void tone(int, int) override {}
  void beep() override;
};

class QtProcess : public Process {
 public:
  bool start(const std::string& program) override;
};

class QtScreen : public Screen {
 public:
  int width() override;
  int height() override;
  int TwipsPerPixelX() override;
  int TwipsPerPixelY() override;
};

}  // namespace vk
