#include "ui_qt/Walker.h"

#include <QApplication>
#include <QComboBox>
#include <QFrame>
#include <QLineEdit>
#include <QListWidget>
#include <QScrollBar>
#include <QTimer>

#include "ui_qt/ScriptedTime.h"
#include "ui_qt/User.h"

namespace vk {
namespace {

constexpr int kMostLooks = 20'000;  // looks at a command that computes

}  // namespace

void Walker::walk(int steps) {
  left_ = steps;
  next();
  while (!done_) QTest::qWait(1);
}

void Walker::next() {
  QTimer::singleShot(0, &clock_, [this] { step(); });
}

void Walker::step() {
  if (beforeStep) beforeStep();
  QWidget* modal = QApplication::activeModalWidget();
  if (left_ <= 0 && modal == nullptr) return end();
  next();
  if (QWidget* popup = QApplication::activePopupWidget()) {
    // A menu on the way to an entry is left alone.
    if (!inMenus_) popup->close();
    return;
  }
  if (waitsForCommand()) return;
  ScriptedTime::settle();
  note(modal);
  if (--left_ < 0) return leave(modal);
  modal != nullptr ? answer(modal) : roam();
}

/// A command that computes is waited for, but not for ever.
bool Walker::waitsForCommand() {
  if (!commandComputes()) computes_ = 0;
  if (computes_ == 0 && !commandComputes()) return false;
  if (++computes_ > kMostLooks) done_ = stuck = true;
  return true;
}

void Walker::note(const QWidget* modal) {
  if (log == nullptr) return;
  const auto name = [](const QObject* object) {
    return object == nullptr ? "-" : object->objectName().toStdString();
  };
  *log << left_ << ' ' << draws_ << ' ' << name(modal) << ' ' << name(QApplication::activeWindow()) << ' '
       << name(QApplication::focusWidget()) << ' ' << QGuiApplication::topLevelWindows().size() << std::endl;
}

void Walker::end() {
  if (QWidget* editor = windowNamed("FrmEdi")) {
    gaveUp = true;
    editor->close();
  }
  done_ = true;
}

void Walker::pressAny(QWidget* window) {
  QList<QAbstractButton*> buttons;
  for (auto* button : window->findChildren<QAbstractButton*>()) {
    if (button->isVisible() && button->isEnabled()) buttons << button;
  }
  if (!buttons.isEmpty()) QTest::mouseClick(anyOf(buttons), Qt::LeftButton);
}

void Walker::anyKey(QWidget* target) {
  static constexpr Qt::Key kKeys[]{Qt::Key_Return, Qt::Key_Up,      Qt::Key_Down,      Qt::Key_Tab,
                                   Qt::Key_Escape, Qt::Key_Space,   Qt::Key_Backspace, Qt::Key_Home,
                                   Qt::Key_End,    Qt::Key_Backtab, Qt::Key_F2};
  static const QString kTyped = QString("0123456789.-+eEx*()a²µ,");
  if (chance(60)) return typeText(target, QString(anyOf(kTyped)));
  QTest::keyClick(target, kKeys[random(static_cast<int>(std::size(kKeys)))]);
}

void Walker::keyTo(QWidget* window) {
  QWidget* focus = QApplication::focusWidget();
  anyKey(focus != nullptr && focus->window() == window ? focus : window);
}

void Walker::minimiseOrRestore(QWidget* window) {
  window->isMinimized() ? window->showNormal() : window->showMinimized();
}

void Walker::resize(QWidget* window) {
  static constexpr QSize kSizes[]{{1, 1}, {120, 40}, {700, 500}, {6000, 5000}};
  window->resize(kSizes[random(static_cast<int>(std::size(kSizes)))]);
}

/// Minimises, closes or resizes one of the windows that do not wait for an answer; the main window stays open.
void Walker::upset() {
  std::vector<QWidget*> windows{window_};
  for (const char* name : {"FrmOut", "FrmEdi", "FrmDia", "GralFrm"}) {
    if (QWidget* other = windowNamed(name)) windows.push_back(other);
  }
  QWidget* window = anyOf(windows);
  if (chance(40)) return minimiseOrRestore(window);
  if (window == window_ || chance(60)) return resize(window);
  gaveUp = gaveUp || window->objectName() == "FrmEdi";
  window->close();
}

void Walker::answer(QWidget* modal) {
  const QString name = modal->objectName();
  if (unruly && chance(2)) return chance(50) ? resize(modal) : minimiseOrRestore(window_);
  if (name == "FileDialog") return answerFile(modal);
  if (chance(name == "InpFrm" ? 8 : 35)) return pressAny(modal);
  if (chance(3)) {
    modal->close();
    return;
  }
  for (auto* list : modal->findChildren<QListWidget*>()) {
    if (list->count() > 0 && chance(40)) list->setCurrentRow(random(list->count()));
  }
  keyTo(modal);
}

void Walker::answerFile(QWidget* dialog) {
  if (chance(20)) {
    QTest::keyClick(dialog, Qt::Key_Escape);
    return;
  }
  auto* name = control<QLineEdit>(dialog, "fileNameEdit");
  name->setText(anyOf(names_));
  QTest::keyClick(name, Qt::Key_Return);
}

void Walker::roam() {
  QWidget* output = windowNamed("FrmOut");
  QWidget* editor = windowNamed("FrmEdi");
  if (unruly && chance(3)) return upset();
  if (output != nullptr && chance(tidiness)) return chance(80) ? pressAny(output) : keyTo(output);
  if (editor != nullptr) return edit(editor);
  if (QWidget* diagnosis = windowNamed("FrmDia"); diagnosis != nullptr && chance(30))
    return chance(50) ? pressAny(diagnosis) : keyTo(diagnosis);
  QWidget* figure = windowNamed("GralFrm");
  if (figure != nullptr && chance(15)) return lookAt(figure);
  for (const char* panel : {"FraDir", "FraGra"}) {
    auto* frame = control<QFrame>(window_, panel);
    if (frame->isVisible()) return playWith(frame);
  }
  if (chance(10)) return keyTo(window_);
  chooseCommand();
}

void Walker::lookAt(QWidget* figure) {
  ++figures;
  if (chance(20)) {
    figure->close();
    return;
  }
  QTest::mouseClick(figure, Qt::LeftButton, {}, QPoint(random(figure->width()), random(figure->height())));
}

void Walker::edit(QWidget* editor) {
  edited = true;
  if (!chance(25)) return keyTo(editor);
  QList<QAction*> entries;
  for (auto* entry : editor->findChildren<QAction*>()) {
    if (entry->objectName().startsWith("Mnu") && entry->isEnabled()) entries << entry;
  }
  if (entries.isEmpty()) return;
  QAction* chosen = anyOf(entries);
  gaveUp = chosen->objectName() == "MnuFilRin";
  chosen->trigger();
}

void Walker::playWith(QFrame* panel) {
  if (chance(30)) return pressAny(panel);
  for (auto* bar : panel->findChildren<QScrollBar*>()) {
    if (chance(30)) bar->setValue(random(30));
  }
  for (auto* list : panel->findChildren<QListWidget*>()) {
    if (chance(30) && list->count() > 0) list->setCurrentRow(random(list->count()));
  }
  keyTo(window_);
}

void Walker::chooseCommand() {
  const auto table = commandTable();
  const Command& command = table[static_cast<std::size_t>(random(static_cast<int>(table.size())))];
  auto* action = window_->findChild<QAction*>(QString::fromStdString(std::string(command.name)));
  if (action == nullptr || !action->isVisible()) return;
  ++commands;
  if (log != nullptr) *log << "  " << command.name << std::endl;
  // Opening menus takes the time of their pop-up; most choices go the short way.
  if (!chance(10) || window_->isMinimized()) return action->trigger();
  inMenus_ = true;
  clickMenu(window_, action->objectName());
  inMenus_ = false;
}

/// Ends a form that the last step has left open.
void Walker::leave(QWidget* form) {
  const QString name = form->objectName();
  if (name == "FrmMsg" || name == "PlainBox") return pressAny(form);
  form->close();
}

}  // namespace vk
