#include "ui_qt/User.h"

#include <QApplication>
#include <QDialog>
#include <QLineEdit>
#include <QTimer>

namespace vk {
namespace {

constexpr int kPause = 1;        // ms between two looks
constexpr int kPatience = 3000;  // looks before the test is ended as hung

}  // namespace

QWidget* windowNamed(const QString& name) {
  for (QWidget* window : QApplication::topLevelWidgets()) {
    if (window->objectName() == name && window->isVisible()) return window;
  }
  return nullptr;
}

User::~User() {
  for (const Step& step : steps_) ADD_FAILURE() << "step left over at " << step.window.toStdString();
}

void User::at(const QString& window, std::function<void(QWidget*)> action) {
  steps_.push_back({window, std::move(action)});
  if (looking_) return;
  looking_ = true;
  idle_ = 0;
  QTimer::singleShot(kPause, qApp, [this] { look(); });
}

void User::look() {
  looking_ = false;
  if (steps_.empty()) return;
  const Step step = steps_.front();
  QWidget* window = windowNamed(step.window);
  const bool inFront =
      window != nullptr && QApplication::activeWindow() == window &&
      (QApplication::activeModalWidget() == nullptr || QApplication::activeModalWidget() == window);
  if (!inFront && ++idle_ > kPatience)
    qFatal("no window %s, but %s; modal %s", qPrintable(step.window),
           QApplication::activeWindow() ? qPrintable(QApplication::activeWindow()->objectName()) : "none",
           QApplication::activeModalWidget() ? qPrintable(QApplication::activeModalWidget()->objectName())
                                             : "none");
  looking_ = true;
  QTimer::singleShot(kPause, qApp, [this] { look(); });
  if (!inFront) return;
  idle_ = 0;
  steps_.pop_front();
  step.action(window);
}

void User::finish() {
  while (!steps_.empty()) QTest::qWait(kPause);
}

void User::press(const QString& window, const QString& button) {
  at(window,
     [button](QWidget* shown) { QTest::mouseClick(control<QPushButton>(shown, button), Qt::LeftButton); });
}

void User::keys(const QString& window, const QString& name, const QString& text) {
  at(window, [name, text](QWidget* shown) { QTest::keyClicks(control<QWidget>(shown, name), text); });
}

void User::key(const QString& window, Qt::Key key, Qt::KeyboardModifiers modifiers) {
  at(window, [key, modifiers](QWidget* shown) {
    QWidget* target = QApplication::focusWidget();
    QTest::keyClick(target != nullptr ? target : shown, key, modifiers);
  });
}

void User::close(const QString& window) {
  at(window, [](QWidget* shown) { shown->close(); });
}

void User::file(const QString& name) {
  at("FileDialog", [name](QWidget* shown) {
    auto* edit = control<QLineEdit>(shown, "fileNameEdit");
    edit->selectAll();
    QTest::keyClicks(edit, name);
    QTest::keyClick(edit, Qt::Key_Return);
  });
}

void User::cancelFile() {
  at("FileDialog", [](QWidget* shown) { QTest::keyClick(shown, Qt::Key_Escape); });
}

void bringToFront(QWidget* window) {
  window->show();
  window->activateWindow();
  ASSERT_TRUE(QTest::qWaitForWindowActive(window));
}

void typeText(QWidget* target, const QString& text) {
  for (const QChar c : text) {
    const auto key = c.unicode() < 128 ? QTest::asciiToKey(static_cast<char>(c.unicode())) : Qt::Key_unknown;
    QTest::sendKeyEvent(QTest::Click, target, key, c, Qt::NoModifier);
  }
}

QColor pixelAt(QWidget* widget, QPoint point) {
  return widget->grab(QRect(point, QSize(1, 1))).toImage().pixelColor(0, 0);
}

}  // namespace vk
