#include "ui/OutputModel.h"

#include <array>
#include <cmath>

#include "base/Guard.h"
#include "base/Text.h"

namespace vk {
namespace {

/// A text box needs room for its scroll bars and border.
constexpr int kTextBoxMargin = 300;
constexpr double kBelowOwnersTop = 600;

struct CommandOfCaption {
  WindowText caption;
  OutputCommand command;
};
constexpr std::array<CommandOfCaption, 4> kCommands{{{kContinueButton, OutputCommand::kContinue},
                                                     {kPrintButton, OutputCommand::kPrint},
                                                     {kCopyButton, OutputCommand::kCopy},
                                                     {kSaveFileButton, OutputCommand::kSaveFile}}};
}  // namespace

OutputCommand outputCommand(const WindowText& caption) {
  for (const CommandOfCaption& entry : kCommands) {
    if (caption == entry.caption) return entry.command;
  }
  return OutputCommand::kNone;
}

void OutputModel::OutShow(const OutputRequest& request) {
  GridOutput::OutShow(request);
  OutTextMode = toFlag(isTextMode());
  OutButtons = static_cast<int>(request.captions.size());
}

OutputLayout OutputModel::layout(CellSize cell, const OutputSurroundings& around) {
  cell_ = cell;
  OutPixelH = request().rows * cell.height + (OutTextMode ? kTextBoxMargin : 0);
  OutPixelW = request().cols * cell.width + (OutTextMode ? kTextBoxMargin : 0);

  OutputLayout layout;
  const double buttonBand = OutButtons > 0 ? 2 * around.button.height : 0;
  layout.form.width = OutPixelW + around.frame.width;
  layout.form.height = OutPixelH + around.frame.height + buttonBand;
  layout.form.left = around.owner.left + (around.owner.width - layout.form.width) / 2;
  layout.form.top = around.owner.top + kBelowOwnersTop;
  for (int i = 0; i < OutButtons; ++i) {
    const double left = (i + 0.5) * OutPixelW / OutButtons - around.button.width / 2;
    layout.buttons.push_back(
        {left, OutPixelH + around.button.height / 2, around.button.width, around.button.height});
  }
  return layout;
}

void OutputModel::printOn(Printer& printer, const FontSpec& font) {
  if (!OutTextMode) return printDrawing(printer, font);
  printer.printText(request().text, font.face, font.size);
  printer.EndDoc();
}

void OutputModel::printDrawing(Printer& printer, const FontSpec& font) {
  const Int16 before = printer.Orientation();
  printer.setOrientation(OutPixelW > OutPixelH ? kLandscape : kPortrait);
  const AtEnd turnBack([&] { guard([&] { printer.setOrientation(before); }); });
  // QUIRK: the margin is an absolute difference, so a drawing wider than the page starts inside it and is cut.
  const double left = std::abs(printer.Width().value() - OutPixelW) / 2;
  const double top = std::abs(printer.Height().value() - OutPixelH) / 2;
  printer.printGrid(grid(), {left, top, cell_.width * 1.0, cell_.height * 1.0, font.face, font.size * 1.0});
  printer.EndDoc();
}

void OutputModel::copyTo(Clipboard& clipboard) const {
  clipboard.clear();
  if (OutTextMode) {
    clipboard.setText(request().text);
  } else {
    clipboard.setGrid(grid());
  }
}

}  // namespace vk
