#pragma once

#include "base/EncodedText.h"
#include "base/Int16.h"
#include "platform/Control.h"
#include "platform/Form.h"

namespace vk {

/// The main window `Vor_Kel` as commands see it.
class MainWindow {
 public:
  virtual ~MainWindow() = default;

  /// State and look of a menu entry.
  virtual void setMenuEnabled(Control control, bool enabled) = 0;
  virtual void setMenuVisible(Control control, bool visible) = 0;
  virtual void setMenuChecked(Control control, bool checked) = 0;
  /// "&" stands before the access key, "&&" for the sign itself.
  virtual void setMenuCaption(Control control, const WindowText& caption) = 0;

  /// Text of a status panel, 1..5; the panel takes the size of its text.
  virtual void setPanel(int panel, const WindowText& text) = 0;
  virtual void setCaption(const WindowText& caption) = 0;

  /// Shuts all input out on behalf of a form: one that wants its answer first, or one that shows a computation.
  /// The window opens when the last holder has released it, shown or minimised. Input that came meanwhile is dropped.
  /// Neither fails.
  virtual void shut(Form holder) = 0;
  virtual void release(Form holder) = 0;
  /// Paints at once what has changed.
  virtual void refresh() = 0;
  virtual void toFront() = 0;

  /// Shows background picture 0..2.
  virtual void setBackground(Int16 picture) = 0;
};

/// Shuts the main window as long as it lives.
class ShutWindow {
 public:
  ShutWindow(MainWindow& window, Form holder) : window_(window), holder_(holder) { window_.shut(holder_); }
  ~ShutWindow() { window_.release(holder_); }
  ShutWindow(const ShutWindow&) = delete;
  ShutWindow& operator=(const ShutWindow&) = delete;

 private:
  MainWindow& window_;
  Form holder_;
};

}  // namespace vk
