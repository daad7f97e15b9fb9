#include "ui/qt/widgets/EventPump.h"

#include <QAbstractEventDispatcher>
#include <QCursor>
#include <QEvent>
#include <QGuiApplication>
#include <QSignalBlocker>
#include <QTimer>
#include <QWindow>

namespace vk {
namespace {

constexpr qint64 kShortestPause = 33;  // ms
constexpr int kShowingTime = 500;      // ms

/// Eats what the user did.
class InputTrap : public QObject {
 protected:
  bool eventFilter(QObject*, QEvent* event) override {
    switch (event->type()) {
      case QEvent::KeyPress:
      case QEvent::KeyRelease:
      case QEvent::ShortcutOverride:
      case QEvent::MouseButtonPress:
      case QEvent::MouseButtonRelease:
      case QEvent::MouseButtonDblClick:
      case QEvent::Wheel:
      case QEvent::Close:
        return true;
      default:
        return false;
    }
  }
};

}  // namespace

EventPump::EventPump(qint64 patience) : patience_(patience) {
  connect(QAbstractEventDispatcher::instance(), &QAbstractEventDispatcher::aboutToBlock, this,
          [this] { hideWaitCursor(); });
  QCoreApplication::instance()->installEventFilter(this);
}

EventPump::~EventPump() {
  hideWaitCursor();
}

bool EventPump::eventFilter(QObject*, QEvent*) {
  startWork();
  return false;
}

void EventPump::startWork() {
  if (!work_.isValid()) work_.start();
}

void EventPump::showWaitCursor() {
  if (waiting_) return;
  QGuiApplication::setOverrideCursor(Qt::WaitCursor);
  waiting_ = true;
}

void EventPump::hideWaitCursor() {
  work_.invalidate();
  if (!waiting_) return;
  QGuiApplication::restoreOverrideCursor();
  waiting_ = false;
}

void EventPump::repaint() {
  startWork();
  if (work_.elapsed() >= patience_) showWaitCursor();
  if (last_.isValid() && last_.elapsed() < kShortestPause) return;
  QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
  last_.start();
  handled_ = true;
}

void EventPump::awaitShowing(const QWidget& window) {
  constexpr auto kNoInput = QEventLoop::ExcludeUserInputEvents;
  const QSignalBlocker working(QAbstractEventDispatcher::instance());  // it is no wait for the user
  QTimer patience;
  patience.setSingleShot(true);
  patience.start(kShowingTime);
  while (!window.windowHandle()->isExposed() && patience.isActive())
    QCoreApplication::processEvents(kNoInput | QEventLoop::WaitForMoreEvents);
  QCoreApplication::processEvents(kNoInput);  // what comes with the showing: the frame, the first painting
  last_.invalidate();
}

void EventPump::dropInput() {
  if (!handled_) return;
  handled_ = false;
  InputTrap trap;
  QCoreApplication::instance()->installEventFilter(&trap);
  QCoreApplication::processEvents();
  QCoreApplication::instance()->removeEventFilter(&trap);
}

}  // namespace vk
