#pragma once

#include <functional>
#include <vector>

#include "base/EncodedText.h"
#include "base/Int16.h"
#include "platform/CharGrid.h"
#include "platform/Form.h"
#include "platform/ManualPages.h"
#include "platform/Texts.h"

namespace vk {

/// What `OutShow` opens. Captions of the buttons decide what they do: "&Continua" closes, "&Stampa" prints,
/// "Co&pia" copies, "Salva &File" runs the save routine and closes.
struct OutputRequest {
  Form owner = Form::kMain;
  Int16 rows = 0;
  Int16 cols = 0;
  std::vector<WindowText> captions{};
  WindowText caption{};
  Cp437Text text{};  ///< text mode when it is not empty after trimming, else drawing mode
  ManualTopic topic = ManualTopic::kMainWindow;
  /// A window that is still open stays beside the new one, to be read and closed by the user.
  bool beside = false;
};

/// What F2 and the menu key open beside an output window whose command has more to tell.
struct OutputDetail {
  WindowText meaning{};  ///< for the user
  std::function<void()> open{};
};

/// The three buttons of nearly every report.
inline const std::vector<WindowText> kReportButtons{kContinueButton, kPrintButton, kCopyButton};

/// The window of the reports that list the errors of a file.
inline OutputRequest reportRequest(const WindowText& caption, const Cp437Text& text, ManualTopic topic) {
  return {
      .rows = 25, .cols = 80, .captions = kReportButtons, .caption = caption, .text = text, .topic = topic};
}

/// The output window: a grid of character cells that a command draws on, or a text to read. Modeless: the
/// command goes on, and ends, while the window is open.
class OutputWindow {
 public:
  virtual ~OutputWindow() = default;

  /// Opens the window with an empty grid, or the text. Replaces what it showed before, unless `beside`.
  virtual void OutShow(const OutputRequest& request) = 0;

  /// Sets the print position to a cell; rows and columns from 1.
  virtual void CharLocate(int row, int col) = 0;
  /// Prints at the print position, opaque, and moves it behind the text.
  virtual void print(const Cp437Text& text) = 0;
  /// A frame through the centres of the corner cells; a title is printed centred in the
  /// row below the top side.
  virtual void CharFrame(int row1, int col1, int row2, int col2, int style, const Cp437Text& title) = 0;

  /// Shows what has been drawn so far; a long computation calls it now and then.
  virtual void refresh() = 0;

  /// What "Salva &File" runs; set by the command that offers the button.
  virtual void setSaveRoutine(std::function<void()> routine) = 0;

  /// What the window can tell beyond what it shows; gone with what it shows.
  virtual void setDetail(OutputDetail detail) = 0;

  /// Closes the window and refreshes its owner. Does nothing when it is closed.
  virtual void FrmOut_Exit() = 0;

  /// How many times a window has been opened.
  virtual int opened() const = 0;
  /// Closes what has been opened since `opened` gave this number.
  virtual void closeSince(int opened) = 0;
};

}  // namespace vk
