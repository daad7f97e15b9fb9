#include "ui/qt/Windows.h"

#include <QGuiApplication>
#include <QScreen>
#include <QWindow>
#include <algorithm>

#include "ui/qt/Twips.h"

namespace vk {
namespace {

QRect screenArea(const QWidget* window) {
  const QScreen* screen = window != nullptr ? window->screen() : QGuiApplication::primaryScreen();
  return screen->availableGeometry();
}

}  // namespace

QWidget* Windows::shown(Form form) const {
  if (form == Form::kActivePlot) return activePlot_ ? activePlot_() : nullptr;
  const auto found = widgets_.find(form);
  if (found == widgets_.end()) return nullptr;
  QWidget* widget = found->second;
  return widget->isVisible() && !widget->isMinimized() ? widget : nullptr;
}

QWidget* Windows::atWork(Form form) const {
  QWidget* window = shown(form);
  QWidget* editor = shown(Form::kEditor);
  return window != nullptr && !window->isEnabled() && editor != nullptr ? editor : window;
}

Rect Windows::place(Form form) const {
  const QWidget* window = shown(form);
  return window == nullptr ? Rect() : toTwips(window->frameGeometry().translated(-screenCorner(form)));
}

Size Windows::frame() const {
  const QWidget* main = shown(Form::kMain);
  if (main == nullptr) return {};
  return toTwips(main->frameGeometry().size() - main->geometry().size());
}

QPoint Windows::screenCorner(Form form) const {
  return screenArea(shown(form)).topLeft();
}

Size Windows::screenSize(Form form) const {
  return toTwips(screenArea(shown(form)).size());
}

void Windows::settle(QWidget& window, Form owner, const Rect& place) const {
  window.winId();
  const QWidget* above = shown(owner);
  window.windowHandle()->setTransientParent(above != nullptr ? above->window()->windowHandle() : nullptr);
  const QRect wanted = toPixels(place);
  const QSize room = screenArea(above).size() - wanted.size();
  // A window that is wider than its owner is not to lose the beginning of its lines.
  const QPoint corner(std::max(0, std::min(wanted.left(), room.width())),
                      std::max(0, std::min(wanted.top(), room.height())));
  window.move(corner + screenCorner(owner));
}

}  // namespace vk
