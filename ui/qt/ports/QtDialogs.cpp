#include "ui/qt/ports/QtDialogs.h"

#include <QApplication>
#include <QMessageBox>
#include <QWindow>

#include "ui/qt/ports/FileDialog.h"
#include "ui/qt/widgets/TextConversion.h"

namespace vk {
namespace {

/// Not every window system gives the focus back by itself.
void activate(QWidget* owner) {
  if (owner != nullptr) owner->activateWindow();
}

}  // namespace

QtDialogs::QtDialogs(const Windows& windows, FrmMsg& message) : windows_(windows), message_(message) {
  QObject::connect(qApp, &QGuiApplication::focusWindowChanged, &watch_,
                   [this](const QWindow* activated) { noteActivated(activated); });
}

void QtDialogs::noteActivated(const QWindow* activated) {
  for (QWidget* window : QApplication::topLevelWidgets()) {
    if (activated != nullptr && window->windowHandle() == activated && window->windowType() != Qt::Popup &&
        !window->isModal()) {
      lastActive_ = window;
    }
  }
}

QWidget* QtDialogs::inFront() const {
  if (QWidget* modal = QApplication::activeModalWidget()) return modal;
  if (lastActive_ != nullptr && lastActive_->isVisible()) return lastActive_;
  if (QWidget* editor = windows_.shown(Form::kEditor)) return editor;
  return windows_.shown(Form::kMain);
}

void QtDialogs::plainBox(const WindowText& title, const WindowText& text) {
  QWidget* owner = inFront();
  QMessageBox box(QMessageBox::NoIcon, fromText(title), QString(), QMessageBox::Ok, owner);
  box.setObjectName("PlainBox");
  box.setTextFormat(Qt::PlainText);  // texts hold "<*>", which is no markup
  box.setText(fromText(text));
  box.setAccessibleName(box.windowTitle());
  box.exec();
  activate(owner);
}

std::optional<std::string> QtDialogs::fileDialog(const FileRequest& request) {
  QWidget* owner = inFront();
  std::optional<std::string> name = askFileName(request, owner);
  activate(owner);
  return name;
}

}  // namespace vk
