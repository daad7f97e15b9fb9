#include "ui/qt/forms/Windows.h"

#include <QGuiApplication>
#include <QScreen>
#include <QWindow>
#include <algorithm>

#include "ui/qt/widgets/Twips.h"

namespace vk {
namespace {

QRect screenArea(const QWidget* window) {
  const QScreen* screen = window != nullptr ? window->screen() : QGuiApplication::primaryScreen();
  return screen->availableGeometry();
}

}  // namespace

QWidget* Windows::open(Form form) const {
  if (form == Form::kActivePlot) return activePlot_ ? activePlot_() : nullptr;
  const auto found = widgets_.find(form);
  return found != widgets_.end() && found->second->isVisible() ? found->second : nullptr;
}

QWidget* Windows::shown(Form form) const {
  QWidget* window = open(form);
  return window != nullptr && !window->isMinimized() ? window : nullptr;
}

QWidget* Windows::atWork(Form form) const {
  QWidget* window = shown(form);
  QWidget* editor = shown(Form::kEditor);
  return window != nullptr && !window->isEnabled() && editor != nullptr ? editor : window;
}

void Windows::toFront(Form form) const {
  QWidget* window = open(form);
  if (window == nullptr) return;
  window->raise();
  window->activateWindow();
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

QWidget* Windows::above(const QWidget& window, Form owner) const {
  // A list beside a figure goes with the main window: with the figure it would be behind it at the next command.
  const bool stays = owner == Form::kActivePlot && !window.isModal();
  return stays || open(owner) == nullptr ? open(Form::kMain) : open(owner);
}

void Windows::settle(QWidget& window, Form owner, const Rect& place) const {
  const QRect wanted = toPixels(place);
  const QSize free = screenArea(shown(owner)).size() - wanted.size();
  // A window that is wider than its owner is not to lose the beginning of its lines.
  const QPoint corner(std::max(0, std::min(wanted.left(), free.width())),
                      std::max(0, std::min(wanted.top(), free.height())));
  // What was closed while it was minimised would come back minimised, and take its owner with it.
  if (!window.isVisible()) window.setWindowState(window.windowState() & ~Qt::WindowMinimized);
  // The place counts with the frame, of which the toolkit knows nothing before the first showing: told before the
  // window is made, it is passed on as such to the window system.
  window.move(corner + screenCorner(owner));
  window.winId();
  const QWidget* parent = above(window, owner);
  window.windowHandle()->setTransientParent(parent != nullptr ? parent->windowHandle() : nullptr);
}

}  // namespace vk
