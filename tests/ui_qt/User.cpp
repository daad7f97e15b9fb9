#include "ui_qt/User.h"

#include <QApplication>
#include <QDialog>
#include <QLineEdit>
#include <QMenu>
#include <QMenuBar>
#include <QThread>
#include <QTimer>
#include <QWindow>
#include <utility>

namespace vk {
namespace {

constexpr int kMenuPatience = 300;  // ms until a menu that opens is there
constexpr int kGrace = 5;           // looks in which a window may come by itself
constexpr int kPause = 1;           // ms between two looks
constexpr int kPatience = 3000;     // looks before the test is ended as hung

/// The level of the event loop in which a step acts. The next step begins behind it, or in a loop that it opened:
/// what merely lets the window system breathe is no time to act.
int actingLevel = -1;

class Acting {
 public:
  Acting() : before_(std::exchange(actingLevel, QThread::currentThread()->loopLevel())) {}
  ~Acting() { actingLevel = before_; }
  Acting(const Acting&) = delete;
  Acting& operator=(const Acting&) = delete;

 private:
  int before_;
};

/// The user turns to a window that does not come to the front by itself.
void turnTo(QWidget* window) {
  if (QApplication::activePopupWidget() != nullptr) return;
  QWidget* modal = QApplication::activeModalWidget();
  if (modal == nullptr || modal == window) window->activateWindow();
}

}  // namespace

QWidget* windowNamed(const QString& name) {
  QWidget* active = QApplication::activeWindow();
  if (active != nullptr && active->objectName() == name && active->isVisible()) return active;
  // In the order of their making: the toolkit's list of widgets has the order of their addresses.
  for (QWindow* made : QGuiApplication::topLevelWindows()) {
    QWidget* window = QWidget::find(made->winId());
    if (window != nullptr && window->objectName() == name && window->isVisible()) return window;
  }
  return nullptr;
}

bool commandComputes() {
  const QWidget* main = windowNamed("Vor_Kel");
  return main != nullptr && !main->isEnabled() && QApplication::activeModalWidget() == nullptr &&
         windowNamed("FrmEdi") == nullptr;
}

User::~User() {
  for (const Step& step : steps_) ADD_FAILURE() << "step left over at " << step.window.toStdString();
}

void User::at(const QString& window, std::function<void(QWidget*)> action) {
  steps_.push_back({window, std::move(action)});
  if (looking_) return;
  looking_ = true;
  idle_ = 0;
  QTimer::singleShot(kPause, &clock_, [this] { look(); });
}

void User::look() {
  looking_ = false;
  if (steps_.empty()) return;
  const auto lookAgain = [this] {
    looking_ = true;
    QTimer::singleShot(kPause, &clock_, [this] { look(); });
  };
  if (QThread::currentThread()->loopLevel() == actingLevel) return lookAgain();
  const Step step = steps_.front();
  QWidget* window = windowNamed(step.window);
  QWidget* modal = QApplication::activeModalWidget();
  // While a menu is open its step is still at work.
  const bool inFront = window != nullptr && QApplication::activeWindow() == window &&
                       (modal == nullptr || modal == window) &&
                       QApplication::activePopupWidget() == nullptr && !commandComputes();
  if (!inFront && ++idle_ > kPatience)
    qFatal("no window %s, but %s; modal %s", qPrintable(step.window),
           QApplication::activeWindow() ? qPrintable(QApplication::activeWindow()->objectName()) : "none",
           QApplication::activeModalWidget() ? qPrintable(QApplication::activeModalWidget()->objectName())
                                             : "none");
  lookAgain();
  if (!inFront && window != nullptr && idle_ > kGrace) turnTo(window);
  if (!inFront) return;
  idle_ = 0;
  steps_.pop_front();
  const Acting acting;
  step.action(window);
}

void User::finish() {
  while (!steps_.empty()) QTest::qWait(kPause);
}

void User::press(const QString& window, const QString& button) {
  at(window,
     [button](QWidget* shown) { QTest::mouseClick(control<QPushButton>(shown, button), Qt::LeftButton); });
}

void User::type(const QString& window, const QString& name, const QString& text) {
  at(window, [name, text](QWidget* shown) { typeText(control<QWidget>(shown, name), text); });
}

void User::choose(const QString& control) {
  at("Vor_Kel", [control](QWidget* window) { clickMenu(window, control); });
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
    typeText(edit, name);
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

void clickMenu(QWidget* window, const QString& name) {
  auto* bar = control<QMenuBar>(window, QString());
  auto* entry = window->findChild<QAction*>(name);
  if (entry != nullptr && entry->parent() == bar) {
    QTest::mouseClick(bar, Qt::LeftButton, {}, bar->actionGeometry(entry).center());
    return;
  }
  QMenu* menu = entry != nullptr ? qobject_cast<QMenu*>(entry->parent()) : window->findChild<QMenu*>(name);
  ASSERT_NE(menu, nullptr) << name.toStdString();
  if (entry == nullptr) {
    entry = menu->menuAction();
    menu = qobject_cast<QMenu*>(menu->parentWidget());
  }
  // From the menu bar down.
  std::vector<std::pair<QMenu*, QAction*>> way;
  for (; menu != nullptr; entry = menu->menuAction(), menu = qobject_cast<QMenu*>(menu->parentWidget())) {
    way.insert(way.begin(), {menu, entry});
  }
  QTest::mouseClick(bar, Qt::LeftButton, {}, bar->actionGeometry(entry).center());
  if (!entry->isEnabled()) return;
  for (const auto& [shown, action] : way) {
    if (!QTest::qWaitFor([&shown = shown] { return shown->isVisible(); }, kMenuPatience)) break;
    QTest::mouseClick(shown, Qt::LeftButton, {}, shown->actionGeometry(action).center());
    if (!action->isEnabled()) break;
  }
  while (QWidget* popup = QApplication::activePopupWidget()) popup->close();
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
