#pragma once

#include <QWidget>
#include <functional>
#include <map>

#include "platform/Form.h"
#include "ui/Geometry.h"

namespace vk {

/// Runs the handler of an event outside any command: what it throws becomes the platform's message.
using EventRunner = std::function<void(const std::function<void()>&)>;

/// The windows of the program by their place in it, for those who need an owner.
class Windows {
 public:
  void add(Form form, QWidget* widget) { widgets_[form] = widget; }
  void setActivePlot(std::function<QWidget*()> plot) { activePlot_ = std::move(plot); }

  /// The window, if it is there and visible; else none.
  QWidget* shown(Form form) const;
  /// The same; while the editor shuts the main window, the editor in its stead.
  QWidget* atWork(Form form) const;
  /// Its place with frame and title, in twips on its screen; of size 0 when it is not shown.
  Rect place(Form form) const;
  /// What the window system adds to the content of a window. Known from the main window.
  Size frame() const;
  /// The corner of the screen that the window stands on; places are counted from there.
  QPoint screenCorner(Form form) const;
  /// Size of that screen without the parts that the desktop keeps for itself.
  Size screenSize(Form form) const;

  /// Gives a window its owner, so that the window system keeps it above, and moves it to a place counted from
  /// the owner's screen, where it is kept inside.
  void settle(QWidget& window, Form owner, const Rect& place) const;

 private:
  std::map<Form, QWidget*> widgets_;
  std::function<QWidget*()> activePlot_;
};

}  // namespace vk
