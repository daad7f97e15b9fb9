#pragma once

#include <QElapsedTimer>
#include <QObject>
#include <QWidget>

namespace vk {

/// Lets the window system breathe while a command holds the one thread: windows are painted, no input comes in. The
/// wait cursor tells a user who has to wait; it goes when the program waits for the user.
class Breath {
 public:
  /// The cursor tells of work that takes longer than `patience` ms.
  explicit Breath(qint64 patience = kPatience);
  ~Breath();
  Breath(const Breath&) = delete;
  Breath& operator=(const Breath&) = delete;

  /// Shows the wait cursor at once: work begins that is known to take long.
  void tellWork();
  /// Paints what has changed, at most some 30 times a second.
  void take();
  /// Waits until the window system shows a window; without one that answers, half a second. What is drawn into it
  /// next is painted by the first `take`.
  void awaitShowing(const QWidget& window);
  /// Drops the input that has queued up behind a long computation; nothing after a short command.
  void dropInput();

 private:
  static constexpr qint64 kPatience = 200;

  void watchWork();
  void tellReady();

  QObject context_;  ///< no signal comes behind the end of its breath
  qint64 patience_;
  QElapsedTimer work_;  ///< since the program began to work; invalid while it waits for the user
  QElapsedTimer last_;
  bool taken_ = false;
  bool told_ = false;  ///< the wait cursor is shown
};

}  // namespace vk
