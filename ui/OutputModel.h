/// Unit FrmOut: the output window without its widgets.
#pragma once

#include <vector>

#include "platform/Clipboard.h"
#include "platform/FontSpec.h"
#include "platform/GridOutput.h"
#include "platform/Printer.h"
#include "ui/layout/CharFrame.h"
#include "ui/layout/Geometry.h"

/// The output window `FrmOut` without its widgets: what it holds, how large it is, how it prints and copies.
namespace vk {

/// What the layout has to know of the world around the window; twips.
struct OutputSurroundings {
  Rect owner;   ///< the window of the owner
  Size frame;   ///< what the window adds to its content
  Size button;  ///< size of each button
};

/// Where everything stands; twips, buttons within the content.
struct OutputLayout {
  Rect form;  ///< the whole window on the screen
  std::vector<Rect> buttons;
};

/// What a button does, by its caption.
enum class OutputCommand { kNone, kContinue, kPrint, kCopy, kSaveFile };
OutputCommand outputCommand(const WindowText& caption);

class OutputModel : public GridOutput {
 public:
  void OutShow(const OutputRequest& request) override;

  /// Sizes for a cell of the form's font. Call after `OutShow`.
  OutputLayout layout(CellSize cell, const OutputSurroundings& around);

  /// Prints what the window shows and ends the document: a drawing centred on the page, landscape when it is
  /// wider than high, the orientation of before put back; a text from the top of the page in `font`.
  void printOn(Printer& printer, const FontSpec& font);

  /// Replaces the clipboard's content by the text, or the picture, that the window shows.
  void copyTo(Clipboard& clipboard) const;

  Flag OutTextMode;
  Int16 OutButtons;
  int OutPixelW = 0;  ///< content without the buttons, twips
  int OutPixelH = 0;

 private:
  void printDrawing(Printer& printer, const FontSpec& font);

  CellSize cell_;
};

}  // namespace vk
