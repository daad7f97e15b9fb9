#include "ui/qt/widgets/Breath.h"

#include <QAbstractEventDispatcher>
#include <QCursor>
#include <QDeadlineTimer>
#include <QEvent>
#include <QGuiApplication>
#include <QWindow>

namespace vk {
namespace {

constexpr qint64 kShortestPause = 33;  // ms
constexpr qint64 kShowingTime = 500;   // ms

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

Breath::Breath(qint64 patience) : patience_(patience) {
  QObject::connect(QAbstractEventDispatcher::instance(), &QAbstractEventDispatcher::aboutToBlock, &context_,
                   [this] { tellReady(); });
}

Breath::~Breath() {
  tellReady();
}

void Breath::watchWork() {
  if (!work_.isValid()) work_.start();
  if (work_.elapsed() >= patience_) tellWork();
}

void Breath::tellWork() {
  if (told_) return;
  QGuiApplication::setOverrideCursor(Qt::WaitCursor);
  told_ = true;
}

void Breath::tellReady() {
  work_.invalidate();
  if (!told_) return;
  QGuiApplication::restoreOverrideCursor();
  told_ = false;
}

void Breath::take() {
  watchWork();
  if (last_.isValid() && last_.elapsed() < kShortestPause) return;
  QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
  last_.start();
  taken_ = true;
}

void Breath::awaitShowing(const QWidget& window) {
  const QDeadlineTimer deadline(kShowingTime);
  const auto wait = [] { QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents); };
  while (!window.windowHandle()->isExposed() && !deadline.hasExpired()) wait();
  wait();  // for what comes with the showing: the frame, the first painting
  last_.invalidate();
}

void Breath::dropInput() {
  if (!taken_) return;
  taken_ = false;
  InputTrap trap;
  QCoreApplication::instance()->installEventFilter(&trap);
  QCoreApplication::processEvents();
  QCoreApplication::instance()->removeEventFilter(&trap);
}

}  // namespace vk
