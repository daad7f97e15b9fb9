#pragma once

#include "commands/FigurePorts.h"
#include "ui/qt/ports/DesktopServices.h"
#include "ui/qt/ports/QtPaper.h"
#include "ui/qt/ports/QtPlotWindow.h"

namespace vk {

/// What figures are drawn on: plot windows and the printer, with the letters for both. To measure the letters
/// and to ask for printers takes time, so it is made for the first figure.
struct QtFigures {
  QtFigures(Files& files, Dialogs& dialogs, MainWindow& window, OutputWindow& output, Sound& sound,
            QtPrinter& systemPrinter, EventPump& pump, EventRunner run)
      : paper(systemPrinter), plots(graphics, pump, std::move(run)), ports{files, dialogs, window,  output,
                                                                           sound, plots,   printer, screen} {}

  QtGraphics graphics;
  QtPaper paper;
  PrinterDevice printer{paper, graphics.letters()};
  QtScreen screen;
  QtPlotWindows plots;
  FigurePorts ports;
};

}  // namespace vk
