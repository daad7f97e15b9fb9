#pragma once

#include "ui/qt/ports/DesktopServices.h"
#include "ui/qt/ports/QtPaper.h"
#include "ui/qt/ports/QtPlotWindow.h"

namespace vk {

/// What figures are drawn on: plot windows and the printer, with the letters for both. To measure the letters
/// and to ask for printers takes time, so it is made for the first figure.
struct QtFigures {
  QtFigures(QtPrinter& systemPrinter, EventPump& pump, EventRunner run)
      : paper(systemPrinter), plots(graphics, pump, std::move(run)) {}

  QtGraphics graphics;
  QtPaper paper;
  PrinterDevice printer{paper, graphics.letters()};
  QtScreen screen;
  QtPlotWindows plots;
};

}  // namespace vk
