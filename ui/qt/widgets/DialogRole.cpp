#include "ui/qt/widgets/DialogRole.h"

#include <QAccessibleWidget>
#include <QWidget>

namespace vk {
namespace {

QAccessibleInterface* dialogWindow(const QString& kind, QObject* object) {
  auto* widget = qobject_cast<QWidget*>(object);
  const bool dialog =
      kind == "QWidget" && widget != nullptr && widget->isWindow() && widget->windowType() == Qt::Dialog;
  return dialog ? new QAccessibleWidget(widget, QAccessible::Dialog) : nullptr;
}

}  // namespace

void installDialogRole() {
  QAccessible::installFactory(dialogWindow);
}

}  // namespace vk
