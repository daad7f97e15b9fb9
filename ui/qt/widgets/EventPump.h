#pragma once

#include <QElapsedTimer>
#include <QObject>
#include <QWidget>

namespace vk {

/// Handles the events of the window system while a command holds the one thread: windows are painted, no input comes
/// in. The wait cursor shows a user who has to wait; it goes when the program waits for the user.
class EventPump : public QObject {
 public:
  /// The wait cursor is for work that takes longer than `patience` ms.
  explicit EventPump(qint64 patience = kPatience);
  ~EventPump() override;

  /// Shows the wait cursor at once: work begins that is known to take long.
  void showWaitCursor();
  /// Paints what has changed, at most some 30 times a second.
  void repaint();
  /// Waits until the window system shows a window; without one that answers, half a second. What is drawn into it
  /// next is painted by the first `repaint`.
  void awaitShowing(const QWidget& window);
  /// Drops the input that has queued up behind a long computation; nothing after a short command.
  void dropInput();

 protected:
  /// The first event behind a wait is where work begins.
  bool eventFilter(QObject* receiver, QEvent* event) override;

 private:
  static constexpr qint64 kPatience = 200;

  void startWork();
  void hideWaitCursor();

  qint64 patience_;
  QElapsedTimer work_;  ///< since the program began to work; invalid while it waits for the user
  QElapsedTimer last_;
  bool handled_ = false;
  bool waiting_ = false;  ///< the wait cursor is shown
};

}  // namespace vk
