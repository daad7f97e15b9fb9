#include "ui/qt/widgets/AccessButton.h"

#include <QShortcutEvent>

namespace vk {

bool AccessButton::event(QEvent* event) {
  if (event->type() == QEvent::Shortcut && !static_cast<QShortcutEvent*>(event)->isAmbiguous()) {
    click();
    return true;
  }
  return QPushButton::event(event);
}

}  // namespace vk
