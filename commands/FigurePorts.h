#pragma once

#include "gral/Device.h"
#include "gral/PlotWindows.h"
#include "platform/Dialogs.h"
#include "platform/Files.h"
#include "platform/MainWindow.h"
#include "platform/OutputWindow.h"
#include "platform/Screen.h"
#include "platform/Sound.h"

namespace vk {

/// What figures need of the world outside. It outlives the plot windows, whose clicks use it.
struct FigurePorts {
  Files& files;
  Dialogs& dialogs;
  MainWindow& window;
  OutputWindow& output;
  Sound& sound;
  PlotWindows& plots;
  Device& printer;
  Screen& screen;
};

}  // namespace vk
