#pragma once

#include <QWidget>
#include <functional>
#include <map>

#include "platform/Form.h"
#include "ui/layout/Geometry.h"

namespace vk {

/// Runs the handler of an event outside any command: what it throws becomes the platform's message.
using EventRunner = std::function<void(const std::function<void()>&)>;

/// A window that stands above its owner and is minimised with it: window systems do that for dialogs only.
inline constexpr Qt::WindowFlags kOwnedWindow =
    Qt::Dialog | Qt::WindowTitleHint | Qt::WindowSystemMenuHint | Qt::WindowCloseButtonHint;

/// The windows of the program by their place in it, for those who need an owner.
class Windows {
 public:
  void add(Form form, QWidget* widget) { widgets_[form] = widget; }
  void setActivePlot(std::function<QWidget*()> plot) { activePlot_ = std::move(plot); }

  /// The window, if it is there and visible; else none.
  QWidget* shown(Form form) const;
  /// The same; while the editor shuts the main window, the editor in its stead.
  QWidget* atWork(Form form) const;
  /// Brings the window forward, if it is there.
  void toFront(Form form) const;
  /// Its place with frame and title, in twips on its screen; of size 0 when it is not shown.
  Rect place(Form form) const;
  /// What the window system adds to the content of a window. Known from the main window.
  Size frame() const;
  /// The corner of the screen that the window stands on; places are counted from there.
  QPoint screenCorner(Form form) const;
  /// Size of that screen without the parts that the desktop keeps for itself.
  Size screenSize(Form form) const;

  /// Gives a window its owner, so that the window system keeps it above, and moves it to a place counted from
  /// the owner's screen, where it is kept inside. Without the owner it belongs to the main window.
  void settle(QWidget& window, Form owner, const Rect& place) const;

 private:
  /// The window, minimised or not; none when it is hidden.
  QWidget* open(Form form) const;
  /// The window above which another one is to stand; none when it is to stand above all of the program.
  QWidget* above(const QWidget& window, Form owner) const;

  std::map<Form, QWidget*> widgets_;
  std::function<QWidget*()> activePlot_;
};

}  // namespace vk
