#include "commands/PlotWindowCommands.h"

#include <cmath>

#include "base/Guard.h"
#include "base/Text.h"

namespace vk {
namespace {

constexpr const char* kLeaveButton = "&Esci";

enum PlotAction : int { kContinue = 1, kExit = 2, kCopy = 3, kPrint = 4 };

/// A caption without the part in parentheses at its end.
std::string shortCaption(const std::string& caption) {
  constexpr int kFirstCut = 4;
  const int open = position(caption, "(", kFirstCut);
  return open == 0 ? caption : left(caption, open - 1);
}

void plotWindowClicked(Ports& ports, PlotWindow& plot) {
  const int action =
      ports.dialogs.Get_Msg({.owner = Form::kActivePlot,
                             .caption = WindowText(shortCaption(plot.device().Caption())),
                             .captions = {kContinueButton, kLeaveButton, kCopyButton, kPrintButton}});
  switch (action) {
    case kExit:
      guard([&] { plot.device().Hide(); });
      guard([&] { ports.window.toFront(); });
      break;
    case kCopy:
      guard([&] { plot.copyPicture(); });
      break;
    case kPrint:
      printPicture(ports.printer(), plot.device());
      break;
    default:
      break;
  }
}

}  // namespace

PlotWindow& newPlotWindow(Ports& ports) {
  PlotWindow& plot = ports.plots.create();
  plot.setClickRoutine([&ports, &plot] { plotWindowClicked(ports, plot); });
  return plot;
}

void printPicture(Device& printer, Device& figure) {
  Int16 before;
  double left = 0, top = 0;
  guard([&] { before = printer.Orientation(); });
  guard([&] {
    if (figure.Width() > figure.Height()) printer.setOrientation(kLandscape);
  });
  guard([&] { left = std::abs(printer.Width() - figure.Width()) / 2; });
  guard([&] { top = std::abs(printer.Height() - figure.Height()) / 2; });
  guard([&] { printer.PaintPicture(figure.Image(), left, top); });
  guard([&] { printer.EndDoc(); });
  guard([&] { printer.setOrientation(before); });
}

std::string paperOrientation(const FigureSettings& figures) {
  return figures.Landscape != kFalse ? "LANDSCAPE" : "PORTRAIT";
}

}  // namespace vk
