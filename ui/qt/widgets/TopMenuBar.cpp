#include "ui/qt/widgets/TopMenuBar.h"

#include <QShortcutEvent>
#include <algorithm>

namespace vk {

bool TopMenuBar::event(QEvent* event) {
  if (event->type() == QEvent::Shortcut) {
    const QKeySequence key = static_cast<QShortcutEvent*>(event)->key();
    const QList<QAction*> menus = actions();
    const bool grey = std::any_of(menus.begin(), menus.end(), [&key](const QAction* menu) {
      return !menu->isEnabled() && QKeySequence::mnemonic(menu->text()) == key;
    });
    if (grey) return true;
  }
  return QMenuBar::event(event);
}

}  // namespace vk
