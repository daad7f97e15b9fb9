#include "commands/ServiceCommands.h"

#include "doubles/Doubles.h"
#include "doubles/MemoryFiles.h"
#include "doubles/ScriptedDialogs.h"
#include "doubles/TestPorts.h"
#include "session/Session.h"

namespace vk {
namespace {

TEST(MenSerErr, TogglesItsMarkAndTheSwitchTogether) {
  Session session;
  RecordingMainWindow window;
  for (const int expected : {-1, 0, -1}) {
    MenSerErr(session, TestPorts(window));
    EXPECT_EQ(session.settings.ShowErrors, expected);
    EXPECT_EQ(window.menuChecked[Control::MenSerErr], expected != 0);
  }
}

TEST(MenSerCal, StartsACalculatorEachTime) {
  Session session;
  MemoryFiles files;
  RecordingProcess process;
  ScriptedDialogs dialogs;
  MenSerCal(session, TestPorts(files, process, dialogs));
  MenSerCal(session, TestPorts(files, process, dialogs));
  EXPECT_EQ(process.started, (std::vector<std::string>{"/program/tabulo", "/program/tabulo"}));
}

TEST(MenSerCal, AMissingCalculatorIsTold) {
  Session session;
  MemoryFiles files;
  RecordingProcess process;
  process.works = false;
  ScriptedDialogs dialogs;
  dialogs.expectBox();
  MenSerCal(session, TestPorts(files, process, dialogs));
  EXPECT_EQ(dialogs.boxes[0].title, "VOR_KEL");
}

}  // namespace
}  // namespace vk
