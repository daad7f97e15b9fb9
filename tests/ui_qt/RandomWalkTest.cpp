#include <QApplication>
#include <QComboBox>
#include <QListWidget>
#include <QScrollBar>
#include <QTimer>
#include <random>

#include "session/Commands.h"
#include "ui_qt/Desktop.h"

namespace vk {
namespace {

// The address sanitizer watches the whole walk; without it a part tells whether the program stays usable.
#ifdef __SANITIZE_ADDRESS__
constexpr int kSteps = 10'000;
#else
constexpr int kSteps = 2'000;
#endif

/// Somebody who clicks and types whatever comes to mind, always the same way.
class Walker {
 public:
  Walker(QWidget* window, std::vector<QString> names) : window_(window), names_(std::move(names)) {}

  void walk(int steps) {
    left_ = steps;
    next();
    while (!done_) QTest::qWait(1);
  }
  int commands = 0;  ///< chosen in the menus
  int figures = 0;   ///< clicked at or closed

 private:
  int random(int below) { return std::uniform_int_distribution<int>(0, below - 1)(generator_); }
  template <class Items>
  auto anyOf(Items& items) {
    return items[static_cast<typename Items::size_type>(random(static_cast<int>(items.size())))];
  }
  bool chance(int percent) { return random(100) < percent; }

  void next() {
    QTimer::singleShot(0, &clock_, [this] { step(); });
  }
  void step() {
    QWidget* modal = QApplication::activeModalWidget();
    if (left_ <= 0 && modal == nullptr) {
      if (QWidget* editor = windowNamed("FrmEdi")) editor->close();
      done_ = true;
      return;
    }
    next();
    if (QWidget* popup = QApplication::activePopupWidget()) {
      // A menu on the way to an entry is left alone.
      if (!inMenus_) popup->close();
      return;
    }
    // While a fit runs nothing is taken: what comes then is dropped.
    if (modal == nullptr && !window_->isEnabled() && windowNamed("FrmEdi") == nullptr) return;
    if (--left_ < 0) return leave(modal);
    modal != nullptr ? answer(modal) : roam();
  }

  void pressAny(QWidget* window) {
    QList<QAbstractButton*> buttons;
    for (auto* button : window->findChildren<QAbstractButton*>()) {
      if (button->isVisible() && button->isEnabled()) buttons << button;
    }
    if (!buttons.isEmpty()) QTest::mouseClick(anyOf(buttons), Qt::LeftButton);
  }
  void anyKey(QWidget* target) {
    static constexpr Qt::Key kKeys[]{Qt::Key_Return, Qt::Key_Up,     Qt::Key_Down,      Qt::Key_Tab,
                                     Qt::Key_Escape, Qt::Key_Space,  Qt::Key_Backspace, Qt::Key_Home,
                                     Qt::Key_End,    Qt::Key_Backtab};
    static const QString kTyped = QString("0123456789.-+eEx*()a²µ,");
    if (chance(60)) return typeText(target, QString(anyOf(kTyped)));
    QTest::keyClick(target, kKeys[random(static_cast<int>(std::size(kKeys)))]);
  }
  void keyTo(QWidget* window) {
    QWidget* focus = QApplication::focusWidget();
    anyKey(focus != nullptr && focus->window() == window ? focus : window);
  }

  void answer(QWidget* modal) {
    const QString name = modal->objectName();
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
  void answerFile(QWidget* dialog) {
    if (chance(20)) {
      QTest::keyClick(dialog, Qt::Key_Escape);
      return;
    }
    auto* edit = control<QLineEdit>(dialog, "fileNameEdit");
    edit->setText(anyOf(names_));
    QTest::keyClick(edit, Qt::Key_Return);
  }

  void roam() {
    QWidget* output = windowNamed("FrmOut");
    if (output != nullptr && chance(30)) return chance(80) ? pressAny(output) : keyTo(output);
    if (QWidget* editor = windowNamed("FrmEdi")) return edit(editor);
    QWidget* figure = windowNamed("GralFrm");
    if (figure != nullptr && chance(15)) return lookAt(figure);
    for (const char* panel : {"FraDir", "FraGra"}) {
      auto* frame = control<QFrame>(window_, panel);
      if (frame->isVisible()) return playWith(frame);
    }
    if (chance(10)) return keyTo(window_);
    chooseCommand();
  }
  void lookAt(QWidget* figure) {
    ++figures;
    if (chance(20)) {
      figure->close();
      return;
    }
    QTest::mouseClick(figure, Qt::LeftButton, {}, QPoint(random(figure->width()), random(figure->height())));
  }
  void edit(QWidget* editor) {
    if (!chance(25)) return keyTo(editor);
    QList<QAction*> entries;
    for (auto* entry : editor->findChildren<QAction*>()) {
      if (entry->objectName().startsWith("Mnu") && entry->isEnabled()) entries << entry;
    }
    if (!entries.isEmpty()) anyOf(entries)->trigger();
  }
  void playWith(QFrame* panel) {
    if (chance(30)) return pressAny(panel);
    for (auto* bar : panel->findChildren<QScrollBar*>()) {
      if (chance(30)) bar->setValue(random(30));
    }
    for (auto* list : panel->findChildren<QListWidget*>()) {
      if (chance(30) && list->count() > 0) list->setCurrentRow(random(list->count()));
    }
    keyTo(window_);
  }
  void chooseCommand() {
    const auto table = commandTable();
    const Command& command = table[static_cast<std::size_t>(random(static_cast<int>(table.size())))];
    auto* action = window_->findChild<QAction*>(QString::fromStdString(std::string(command.control)));
    if (action == nullptr || !action->isVisible()) return;
    ++commands;
    // Opening menus takes the time of their pop-up; most choices go the short way.
    if (!chance(10)) return action->trigger();
    inMenus_ = true;
    clickMenu(window_, action->objectName());
    inMenus_ = false;
  }

  /// Ends a form that the last step has left open.
  void leave(QWidget* form) {
    const QString name = form->objectName();
    if (name == "FrmMsg" || name == "PlainBox") return pressAny(form);
    form->close();
  }

  QWidget* window_;
  std::vector<QString> names_;
  std::mt19937 generator_{20};
  QObject clock_;
  int left_ = 0;
  bool done_ = false;  ///< the last step has left nothing open that waits
  bool inMenus_ = false;
};

class RandomWalkTest : public Desktop {
 protected:
  void SetUp() override { start(); }
  QString file(const std::string& name, const std::string& bytes) {
    return QString::fromStdString(folder.make(name, bytes));
  }
};

TEST_F(RandomWalkTest, ClicksKeysAndAnswersAtRandomLeaveTheProgramUsable) {
  Walker walker(
      &window(),
      {file("retta.dat", lineData()),
       file("x.dat", "x\r\ny\r\n3 1\r\n0 1 .1 .1\r\n1 3 .1 .1\r\n2 5 .1 .2\r\n"),
       file("errori.dat", "x\r\ny\r\n3\r\n0 uno .1\r\n1\r\n"), file("uno.dat", "x\r\ny\r\n1\r\n0 1 .1\r\n"),
       file("due.fcn", "A,B\r\nA*x+B\r\nretta\r\nC\r\nC*x^2\r\nparabola\r\n"),
       file("errori.fcn", "A\r\nA*(x\r\nerrata\r\n"),
       file("figura.gra", "\\XSCALA(5,25,0,8)\r\n\\XASSE(0,8,4,4,3,1,x)\r\n\\SEGNO()\r\n\\FUNZIONE(x/2)\r\n"),
       QString::fromStdString(folder / "salvata.dat"), QString::fromStdString(folder / "stampa.pdf"),
       "manca.dat"});
  walker.walk(kSteps);
  EXPECT_TRUE(exitCodes.empty()) << "ended by itself";
  EXPECT_TRUE(window().isEnabled());
  EXPECT_TRUE(window().isVisible());
  EXPECT_GT(walker.commands, kSteps / 20);
  EXPECT_GT(walker.figures, kSteps / 1000);
  user.choose("MenSerErr");
  act();
}

}  // namespace
}  // namespace vk
