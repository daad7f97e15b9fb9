#include "commands/StartUp.h"
#include "session/Session.h"

#include "session/Session.h"

#include "commands/CommandTable.h"
#include "doubles/ControlNames.h"
#include "doubles/Doubles.h"
#include "doubles/MemoryFiles.h"

namespace vk {
namespace {

TEST(StartUp, TheFoldersAreTheProgramsWhereItCanBeWritten) {
  Session session;
  MemoryFiles files;
  setFirstFolders(session, files);
  EXPECT_EQ(session.files.DataDir, "/program");
  EXPECT_EQ(session.files.FunDir, "/program");
  EXPECT_EQ(session.files.GraDir, "/program");
  for (const std::string& folder : session.files.WorkDir) EXPECT_EQ(folder, "/program");
}

TEST(StartUp, DepartureAShutProgramFolderGivesWayToTheCurrentOneAtATerminalElseToTheDocuments) {
  MemoryFiles files;
  files.atTerminal = true;
  EXPECT_EQ(workingFolder(files), "/program");
  files.notWritable = {"/program", "/current"};
  EXPECT_EQ(workingFolder(files), "/current") << "people who went there to look";
  files.atTerminal = false;
  EXPECT_EQ(workingFolder(files), "/documents");
  files.notWritable.insert("/documents");
  EXPECT_EQ(workingFolder(files), "/current");
}

TEST(StartUp, ThePanelsBeginWithTheTextsOfTheLoadEvent) {
  EXPECT_EQ(kStartPanels, (std::array<WindowText, 5>{"Dati: Nessuno ", "Fun.: Nessuno ", "Grafici: Nessuno ",
                                                     "Fun.Att.: NO ", "Par.Var.: NO "}));
}

TEST(StartUp, SetsTheStateOfEveryMenuEntry) {
  RecordingMainWindow window;
  setFirstMenus(window);
  EXPECT_EQ(window.menuEnabled.size(), commandTable().size());
  EXPECT_EQ(window.menuVisible.size(), commandTable().size());
  for (const Control control : {Control::MenSerMod, Control::MenFunVar, Control::MenDatOld0,
                                Control::MenFunOld3, Control::MenGraOld1}) {
    EXPECT_FALSE(window.menuVisible.at(control)) << control;
  }
  EXPECT_TRUE(window.menuVisible.at(Control::MenDatLet));
  EXPECT_EQ(window.menuChecked, (std::map<Control, bool>{{Control::MenSerErr, false}}));
}

}  // namespace
}  // namespace vk
