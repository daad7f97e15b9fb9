#pragma once

#include <string>

#include "platform/Clock.h"
#include "platform/MainWindow.h"

/// Ports with nothing behind them, for measurements without a program around.
namespace vk {

class NoWindow : public MainWindow {
 public:
  void setMenuEnabled(const std::string&, bool) override {}
  void setMenuVisible(const std::string&, bool) override {}
  void setMenuChecked(const std::string&, bool) override {}
  void setMenuCaption(const std::string&, const std::string&) override {}
  void setPanel(int, const std::string&) override {}
  void setCaption(const std::string&) override {}
  void setEnabled(bool) override {}
  void refresh() override {}
  void toFront() override {}
  void setBackground(Int16) override {}
};

class NoClock : public Clock {
 public:
  float timer() override { return 0; }
};

}  // namespace vk
