#pragma once

#include <QLabel>
#include <QList>
#include <QPushButton>
#include <QTest>
#include <QWidget>
#include <deque>
#include <functional>
#include <string>

namespace vk {

/// Somebody in front of the screen, with steps written down beforehand: each waits for its window to be in
/// front and then acts by real events. Steps go on while the program waits in modal windows. A step left over
/// fails the test.
class User {
 public:
  User() = default;
  ~User();
  User(const User&) = delete;

  /// When the window of this name is in front.
  void at(const QString& window, std::function<void(QWidget*)> action);
  /// Waits until all steps are done.
  void finish();

  // Usual steps.
  void press(const QString& window, const QString& button);
  void type(const QString& window, const QString& control, const QString& text);
  void key(const QString& window, Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier);
  /// Closes the window by its window control.
  void close(const QString& window);
  /// Chooses an entry of the main window's menus by the mouse, by its control name; a disabled one is only
  /// clicked at. The command runs to its end within the step.
  void choose(const QString& control);
  /// Types a name into the file dialog and accepts, or cancels it.
  void file(const QString& name);
  void cancelFile();

 private:
  struct Step {
    QString window;
    std::function<void(QWidget*)> action;
  };
  void look();

  QObject clock_;  ///< no look happens behind the end of its user
  std::deque<Step> steps_;
  bool looking_ = false;
  int idle_ = 0;
};

/// The visible window of this name, the one in front where there are several; none when there is none.
QWidget* windowNamed(const QString& name);

/// A command computes: it has shut the main window, and nothing asks the user. What he does then is dropped.
bool commandComputes();

/// The control of this name in a window; a missing one fails the test.
template <class Control>
Control* control(QObject* window, const QString& name) {
  auto* found = window->findChild<Control*>(name);
  EXPECT_NE(found, nullptr) << name.toStdString();
  return found;
}

/// Shows a window and waits until it is in front.
void bringToFront(QWidget* window);

/// Clicks through the menus of a main window to an entry.
void clickMenu(QWidget* window, const QString& control);

/// Types a text of any characters.
void typeText(QWidget* target, const QString& text);

/// What is painted on a pixel.
QColor pixelAt(QWidget* widget, QPoint point);

}  // namespace vk
