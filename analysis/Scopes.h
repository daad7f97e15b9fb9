#pragma once

#include "base/Int16.h"
#include "platform/MainWindow.h"

/// States that end with the block that began them, however it is left.
namespace vk {

/// Shuts the main window; what was typed and clicked meanwhile is dropped.
class ShutWindow {
 public:
  explicit ShutWindow(MainWindow& window) : window_(window) { window_.setEnabled(false); }
  ~ShutWindow() { window_.setEnabled(true); }
  ShutWindow(const ShutWindow&) = delete;
  ShutWindow& operator=(const ShutWindow&) = delete;

 private:
  MainWindow& window_;
};

/// Gives a flag another value.
class FlagFor {
 public:
  FlagFor(Flag& flag, int value) : flag_(flag), before_(flag) { flag_ = value; }
  ~FlagFor() { flag_ = before_; }
  FlagFor(const FlagFor&) = delete;
  FlagFor& operator=(const FlagFor&) = delete;

 private:
  Flag& flag_;
  Flag before_;
};

}  // namespace vk
