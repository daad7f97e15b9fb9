#pragma once

#include <functional>

#include "commands/FigurePorts.h"
#include "platform/Clock.h"
#include "platform/Dialogs.h"
#include "platform/Files.h"
#include "platform/FunctionForms.h"
#include "platform/InputForm.h"
#include "platform/MainWindow.h"
#include "platform/OutputWindow.h"
#include "platform/Process.h"
#include "platform/Random.h"
#include "platform/SettingsPanels.h"
#include "platform/Sound.h"
#include "platform/TextEditor.h"

namespace vk {

/// Everything outside the program that commands work with.
struct Ports {
  Files& files;
  Dialogs& dialogs;
  MainWindow& window;
  InputForm& input;
  OutputWindow& output;
  FunctionForms& functions;
  Clock& clock;
  Sound& sound;
  Process& process;
  Random& random;
  TextEditor& editor;
  SettingsPanels& panels;
  std::function<FigurePorts&()> figures;  ///< what figures need; asked for when one is drawn
};

}  // namespace vk
