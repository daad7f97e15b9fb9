#include "ui/qt/Breath.h"

#include <QCoreApplication>
#include <QEvent>
#include <QObject>

namespace vk {
namespace {

constexpr qint64 kShortestPause = 33;  // ms

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

void Breath::take() {
  if (last_.isValid() && last_.elapsed() < kShortestPause) return;
  QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
  last_.start();
  taken_ = true;
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
