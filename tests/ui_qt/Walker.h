#pragma once

#include <QObject>
#include <QWidget>
#include <functional>
#include <ostream>
#include <random>
#include <vector>

#include "commands/CommandTable.h"

class QFrame;

namespace vk {

/// Somebody who clicks and types whatever comes to mind, always the same way.
class Walker {
 public:
  /// `names` are what is entered into file dialogs; another `mood` takes another way.
  Walker(QWidget* window, std::vector<QString> names, unsigned mood = 20)
      : window_(window), names_(std::move(names)), generator_(mood) {}

  /// Takes as many steps, and some more until nothing is left open that waits.
  void walk(int steps);

  int tidiness = 30;    ///< per cent: how readily an open report is turned to
  bool unruly = false;  ///< windows are minimised, closed, and made tiny or huge now and then
  std::function<void()> beforeStep;
  std::ostream* log = nullptr;  ///< takes a line for each step: where it was taken, and what was chosen

  int commands = 0;     ///< chosen in the menus
  int figures = 0;      ///< clicked at or closed
  bool stuck = false;   ///< the walk has ended early: a command has shut the main window and nothing goes on
  bool edited = false;  ///< the text of the editor may have changed; whoever watches it takes the mark back
  bool gaveUp = false;  ///< the editor was left without saving; likewise

 private:
  int random(int below) {
    ++draws_;
    return std::uniform_int_distribution<int>(0, below - 1)(generator_);
  }
  template <class Items>
  auto anyOf(Items& items) {
    return items[static_cast<typename Items::size_type>(random(static_cast<int>(items.size())))];
  }
  bool chance(int percent) { return random(100) < percent; }

  void next();
  void step();
  void end();
  void pressAny(QWidget* window);
  void anyKey(QWidget* target);
  void keyTo(QWidget* window);
  void minimiseOrRestore(QWidget* window);
  void resize(QWidget* window);
  void upset();
  bool waitsForCommand();
  void note(const QWidget* modal);

  void answer(QWidget* modal);
  void answerFile(QWidget* dialog);
  void roam();
  void lookAt(QWidget* figure);
  void edit(QWidget* editor);
  void playWith(QFrame* panel);
  void chooseCommand();
  void leave(QWidget* form);

  QWidget* window_;
  std::vector<QString> names_;
  std::mt19937 generator_;
  QObject clock_;
  int left_ = 0;
  int draws_ = 0;      ///< random numbers up to now
  int computes_ = 0;   ///< looks at a command that computes, in turn
  bool done_ = false;  ///< the last step has left nothing open that waits
  bool inMenus_ = false;
};

}  // namespace vk
