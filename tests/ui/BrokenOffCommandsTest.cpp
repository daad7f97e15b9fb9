#include <new>

#include "tests/ui/MainModFixture.h"

namespace vk {
namespace {

using testing::Contains;
using testing::HasSubstr;
using testing::IsEmpty;

TEST_F(MainModTest, AGraphicFileThatHasGoneEndsTheCommand) {
  start();
  files.content["/g.gra"] = "%\r\n";
  dialogs.pick("/g.gra");
  mainMod.run(Control::MenGraLetFil);
  files.content.erase("/g.gra");
  dialogs.expectBox();
  mainMod.run(Control::MenGraVisFil);
  expectBox("VOR_KEL", RuntimeError(kFileNotFound).message());
  EXPECT_EQ(window.panels[3], "Gra.: g.gra");
  EXPECT_TRUE(on(Control::MenGraVisFil));
  files.content["/g.gra"] = "%\r\n";
  mainMod.run(Control::MenGraVisFil);
  EXPECT_EQ(plots.windows.size(), 1u);
}

TEST_F(MainModTest, AGraphicFileThatEndsTooSoonLeavesNoWindowAndNoData) {
  start();
  readData();
  files.content["/B.DAT"] = "x\r\ny\r\n2\r\n5 1 .1\r\n6 3 .1\r\n";
  files.content["/g.gra"] = "\\DATI(/B.DAT)\r\n\\SIMBOLO(3,4)&";
  dialogs.pick("/g.gra");
  mainMod.run(Control::MenGraLetFil);
  for (const Control control : {Control::MenGraVisFil, Control::MenGraPriFil}) {
    dialogs.expectBox();
    mainMod.run(control);
    expectBox("VOR_KEL", "Errore di run-time '62':\n\nInput oltre la fine del file");
    EXPECT_THAT(plots.windows, IsEmpty());
    EXPECT_EQ(session.loaded.DataFile, "/dati/a.dat");
    EXPECT_EQ(session.loaded.data.NumPnt, 3);
  }
  files.content["/g.gra"] = "\\SIMBOLO(1,1)\r\n";
  mainMod.run(Control::MenGraPriFil);
  EXPECT_EQ(figurePrinter.documents(), 1);
  const std::vector<std::string> printed = figurePrinter.lines();
  EXPECT_THAT(printed, testing::Not(Contains(HasSubstr("3,4")))) << "nothing is left of what broke off";
}

TEST_F(MainModTest, ARecentFileThatHasGoneChangesNothingAndTheNextReadingAsks) {
  start();
  readData();
  files.content["/dati/b.dat"] = "x\r\ny\r\n2\r\n0 1 .1\r\n1 3 .1\r\n";
  dialogs.pick("/dati/b.dat");
  mainMod.run(Control::MenDatLet);
  files.content.erase("/dati/a.dat");
  const auto captions = window.menuCaption;
  dialogs.expectBox();
  mainMod.run(Control::MenDatOld1);
  expectBox("VOR_KEL", "Errore di run-time '53':\n\nImpossibile trovare il file");
  EXPECT_EQ(window.panels[1], "Dati: b.dat");
  EXPECT_EQ(window.menuCaption, captions);
  EXPECT_EQ(session.files.RecentData.RecentCount, 2);
  dialogs.pick("/dati/b.dat");
  mainMod.run(Control::MenDatLet);
  EXPECT_EQ(session.files.RecentData.RecentCount, 3) << "read by the dialog";
}

TEST_F(MainModTest, ACommandThatBreaksOffDropsThePickedEntryOfTheListThatItReadsAndOfNoOther) {
  start();
  struct Reading {
    Control control;
    RecentList FileSettings::*list;
  };
  for (const Reading& failing : {Reading{Control::MenDatLet, &FileSettings::RecentData},
                                 {Control::MenFunLet, &FileSettings::RecentFun},
                                 {Control::MenGraVisFil, nullptr}}) {
    for (RecentList* list : {&session.files.RecentData, &session.files.RecentFun, &session.files.RecentGra}) {
      list->paths[1] = "/manca";
      list->pick = 1;
    }
    session.loaded.GraFile = "/manca";
    dialogs.expectBox();
    mainMod.run(failing.control);
    ASSERT_EQ(dialogs.boxes.size(), 1U) << failing.control;
    dialogs.boxes.clear();
    for (RecentList FileSettings::*list :
         {&FileSettings::RecentData, &FileSettings::RecentFun, &FileSettings::RecentGra}) {
      EXPECT_EQ((session.files.*list).pick, list == failing.list ? 0 : 1) << failing.control;
    }
  }
}

TEST_F(MainModTest, APickedEntryOutlivesTheFailureOfAnotherCommand) {
  start();
  readData();
  mainMod.run(Control::MenDatOld0);
  session.loaded.GraFile = "/manca.gra";
  dialogs.expectBox();
  mainMod.run(Control::MenGraVisFil);
  dialogs.boxes.clear();
  const auto asked = dialogs.fileRequests.size();
  mainMod.run(Control::MenDatLet);
  EXPECT_EQ(dialogs.fileRequests.size(), asked) << "the entry is read without asking";
  EXPECT_EQ(session.files.RecentData.RecentCount, 3);
}

TEST_F(MainModTest, AnUnguardedErrorIsToldAndEndsTheCommand) {
  start();
  files.content["/a.dat"] = "x";
  files.readError["/a.dat"] = kPermissionDenied;
  dialogs.pick("/a.dat");
  dialogs.expectBox();
  window.panels.clear();
  mainMod.run(Control::MenDatLet);
  expectBox("VOR_KEL", "Errore di run-time '70':\n\nAutorizzazione negata");
  EXPECT_EQ(window.panels[1], "Dati: Nessuno");
  EXPECT_EQ(session.loaded.DataFile, "Nessuno");
  mainMod.run(Control::MenSerErr);
  EXPECT_EQ(session.settings.ShowErrors, kTrue) << "the program goes on";
}

TEST_F(MainModTest, AFunctionFileThatCannotBeReadLeavesModesAndFunctions) {
  start();
  functions.calls.clear();
  session.analysis.PropagationMode = kTrue;
  session.settings.ShowErrors = kTrue;
  files.content["/f.fcn"] = "A\r\nA*x\r\nretta\r\n";
  files.readError["/f.fcn"] = kDeviceIoError;
  dialogs.pick("/f.fcn");
  dialogs.expectBox();
  mainMod.run(Control::MenFunLet);
  dialogs.boxes.clear();
  EXPECT_EQ(session.analysis.PropagationMode, kTrue);
  EXPECT_EQ(session.loaded.FunFileRead, kFalse);
  EXPECT_FALSE(on(Control::MenFunCar));
  EXPECT_THAT(functions.calls, testing::ElementsAre("refill selection", "refill load list"))
      << "the forms show what there was";
}

TEST_F(MainModTest, AFileThatCannotBeReadIsNotOpen) {
  start();
  files.content["/a.dat"] = "x\r\ny\r\n3\r\n0 1 .1\r\n1 3 .1\r\n2 5.1 .1\r\n";
  EXPECT_TRUE(mainMod.open("/a.dat"));
  files.readError["/a.dat"] = kPermissionDenied;
  dialogs.expectBox();
  EXPECT_FALSE(mainMod.open("/a.dat"));
  dialogs.boxes.clear();
}

TEST_F(MainModTest, ExhaustedMemoryIsRunTimeErrorSeven) {
  dialogs.expectBox();
  mainMod.guarded([] { throw std::bad_alloc(); });
  expectBox("VOR_KEL", "Errore di run-time '7':\n\nMemoria esaurita");
}

TEST_F(MainModTest, APanelThatCannotBeOpenedLeavesTheMenus) {
  start();
  view.failure = kOutOfMemory;
  dialogs.expectBox();
  mainMod.run(Control::MenSerImpDir);
  dialogs.boxes.clear();
  EXPECT_FALSE(panels.isOpen());
  EXPECT_EQ(window.caption, "VOR_KEL");
  EXPECT_TRUE(on(Control::MenDat));
}

}  // namespace
}  // namespace vk
