#pragma once

#include <functional>

#include "gral/PlotWindows.h"
#include "gral/ReportWindow.h"
#include "platform/Clock.h"
#include "platform/Dialogs.h"
#include "platform/Files.h"
#include "platform/FunctionForms.h"
#include "platform/ImportForm.h"
#include "platform/InputForm.h"
#include "platform/MainWindow.h"
#include "platform/OutputWindow.h"
#include "platform/Process.h"
#include "platform/Random.h"
#include "platform/SettingsPanels.h"
#include "platform/Sound.h"
#include "platform/TextEditor.h"

namespace vk {

/// Everything outside the program that commands work with. It outlives the plot windows, whose clicks use it.
struct Ports {
  Files& files;
  Dialogs& dialogs;
  MainWindow& window;
  InputForm& input;
  OutputWindow& output;
  FunctionForms& functions;
  ImportForm& importForm;
  Clock& clock;
  Sound& sound;
  Process& process;
  Random& random;
  TextEditor& editor;
  SettingsPanels& panels;
  PlotWindows& plots;
  ReportWindow& report;
  std::function<Device&()> printer;  ///< asked for when a figure is drawn: to find the system's takes time
};

/// What the choice of a file works with.
struct FilePorts {
  Files& files;
  Dialogs& dialogs;

  FilePorts(Files& disk, Dialogs& questions) : files(disk), dialogs(questions) {}
  FilePorts(const Ports& ports) : files(ports.files), dialogs(ports.dialogs) {}
};

}  // namespace vk
