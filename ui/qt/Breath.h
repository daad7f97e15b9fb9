#pragma once

#include <QElapsedTimer>

namespace vk {

/// Lets the window system breathe while a command holds the one thread: windows are painted, no input comes in.
class Breath {
 public:
  /// Paints what has changed, at most some 30 times a second.
  void take();
  /// Drops the input that has queued up behind a long computation; nothing after a short command.
  void dropInput();

 private:
  QElapsedTimer last_;
  bool taken_ = false;
};

}  // namespace vk
