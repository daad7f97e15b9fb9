#pragma once

#include <QElapsedTimer>
#include <QObject>
#include <QWidget>

namespace vk {

/// Handles the events of the window system while a command holds the one thread: windows are painted, no input comes
/// in. The wait cursor shows a user who has to wait; it goes when the program waits for the user.
class EventPump {
 public:
  /// The wait cursor is for work that takes longer than `patience` ms.
  explicit EventPump(qint64 patience = kPatience);
  ~EventPump();
  EventPump(const EventPump&) = delete;
  EventPump& operator=(const EventPump&) = delete;

  /// Shows the wait cursor at once: work begins that is known to take long.
  void showWaitCursor();
  /// Paints what has changed, at most some 30 times a second.
  void repaint();
  /// Waits until the window system shows a window; without one that answers, half a second. What is drawn into it
  /// next is painted by the first `repaint`.
  void awaitShowing(const QWidget& window);
  /// Drops the input that has queued up behind a long computation; nothing after a short command.
  void dropInput();

 private:
  static constexpr qint64 kPatience = 200;

  void followWork();
  void hideWaitCursor();

  QObject context_;  ///< its end disconnects the signals
  qint64 patience_;
  QElapsedTimer work_;  ///< since the program began to work; invalid while it waits for the user
  QElapsedTimer last_;
  bool handled_ = false;
  bool waiting_ = false;  ///< the wait cursor is shown
};

}  // namespace vk
