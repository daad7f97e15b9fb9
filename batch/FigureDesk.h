#pragma once

#include "batch/TerminalPorts.h"
#include "commands/FigurePorts.h"
#include "gral/NoPrinter.h"
#include "gral/NominalScreen.h"
#include "gral/ObserverDevice.h"
#include "gral/OffscreenWindows.h"
#include "platform/GridOutput.h"

namespace vk {

/// Nobody listens at a terminal.
class NoSound : public Sound {
 public:
  void tone(int, int) override {}
  void beep() override {}
};

/// A form that draws nothing.
inline std::unique_ptr<Device> quietForm() {
  return std::make_unique<ObserverDevice>();
}

/// What a figure needs where nobody looks on: the page is A4, the list of errors stays in `output`.
struct FigureDesk {
  explicit FigureDesk(std::function<std::unique_ptr<Device>()> makeForm = quietForm)
      : plots(std::move(makeForm)) {}

  TerminalFiles files;
  TerminalDialogs dialogs;
  NoMainWindow window;
  GridOutput output;
  NoSound sound;
  OffscreenWindows plots;
  NoPrinter printer;
  NominalScreen screen;
  FigurePorts ports{files, dialogs, window, output, sound, plots, printer, screen};
};

}  // namespace vk
