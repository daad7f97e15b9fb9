#include "ui/qt/widgets/HelpKey.h"

#include <QApplication>
#include <QKeyEvent>
#include <QWidget>
#include <QWindow>

namespace vk {
namespace {

constexpr const char* kTopicProperty = "manualTopic";

/// What a widget stands in or, as a window, above; none for a window that stands for itself.
const QWidget* holderOf(const QWidget& widget) {
  if (const QWidget* parent = widget.parentWidget()) return parent;
  const QWindow* owner =
      widget.windowHandle() != nullptr ? widget.windowHandle()->transientParent() : nullptr;
  for (const QWidget* window : QApplication::topLevelWidgets()) {
    if (owner != nullptr && window->windowHandle() == owner) return window;
  }
  return nullptr;
}

}  // namespace

void setManualTopic(QWidget& widget, ManualTopic topic) {
  widget.setProperty(kTopicProperty, static_cast<int>(topic));
}

ManualTopic manualTopic(const QWidget& widget) {
  for (const QWidget* holder = &widget; holder != nullptr; holder = holderOf(*holder)) {
    const QVariant topic = holder->property(kTopicProperty);
    if (topic.isValid()) return static_cast<ManualTopic>(topic.toInt());
  }
  return ManualTopic::kMainWindow;
}

HelpKey::HelpKey(std::function<void(ManualTopic)> pressed) : pressed_(std::move(pressed)) {
  qApp->installEventFilter(this);
}

bool HelpKey::eventFilter(QObject* target, QEvent* event) {
  if (event->type() != QEvent::KeyPress || !target->isWidgetType()) return false;
  const auto& key = *static_cast<QKeyEvent*>(event);
  const auto& widget = *static_cast<QWidget*>(target);
  if (key.key() != Qt::Key_F1 || key.modifiers() != Qt::NoModifier || !widget.isEnabled()) return false;
  if (!key.isAutoRepeat()) pressed_(manualTopic(widget));
  return true;
}

}  // namespace vk
