#include <QAction>
#include <QMenu>
#include <QMenuBar>
#include <map>

#include "commands/CommandTable.h"
#include "doubles/ControlNames.h"
#include "ui_qt/MainFormFixture.h"

namespace vk {
namespace {

class MenuEntriesTest : public MainFormFixture {
 protected:
  static QString nameOf(Control control) {
    return QString::fromStdString(std::string(commandOf(control).name));
  }
  /// The control of an entry, by the name of its action or of its menu.
  static QString nameOf(const QAction* action) {
    return action->menu() == nullptr ? action->objectName() : action->menu()->objectName();
  }
};

TEST_F(MenuEntriesTest, StandInTheirMenusInTheOrderOfTheTable) {
  std::map<QString, QStringList> found, expected;
  for (const QAction* action : window().menuBar()->actions()) found[""] << nameOf(action);
  for (const Command& command : commandTable()) {
    expected[command.parent ? nameOf(*command.parent) : ""] << nameOf(command.control);
    if (command.kind != CommandKind::kMenu) continue;
    for (const QAction* action : at<QMenu>(nameOf(command.control))->actions()) {
      found[nameOf(command.control)] << nameOf(action);
    }
  }
  EXPECT_EQ(found, expected);
}

TEST_F(MenuEntriesTest, RunTheCommandOfTheirOwnControl) {
  std::vector<Control> ran, expected;
  window().command = [&](Control control) { ran.push_back(control); };
  for (const Command& command : commandTable()) {
    if (command.kind == CommandKind::kMenu) continue;
    expected.push_back(command.control);
    auto* action = at<QAction>(nameOf(command.control));
    action->setVisible(true);
    action->setEnabled(true);
    action->trigger();
  }
  EXPECT_EQ(ran, expected);
}

}  // namespace
}  // namespace vk
