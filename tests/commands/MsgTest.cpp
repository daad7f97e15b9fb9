#include "session/Msg.h"

#include <algorithm>

#include "commands/CommandTable.h"
#include "commands/StartUp.h"
#include "doubles/Doubles.h"
#include "doubles/MemoryFiles.h"

namespace vk {
namespace {

class MsgTest : public testing::Test {
 protected:
  MsgTest() {
    setFirstMenus(window);
    Msg(session, window);
  }

  void refresh() { Msg(session, window); }
  void expectOn(std::initializer_list<const char*> controls) { expect(controls, true); }
  void expectOff(std::initializer_list<const char*> controls) { expect(controls, false); }

  Session session;
  RecordingMainWindow window;

 private:
  void expect(std::initializer_list<const char*> controls, bool on) {
    for (const char* control : controls) EXPECT_EQ(window.menuEnabled.at(control), on) << control;
  }
};

TEST_F(MsgTest, RightAfterTheStartTheAnalysisIsOff) {
  expectOff({"MenDatSav", "MenDatTra", "MenDatSim", "MenGraDat", "MenGraFun", "MenGraDif", "MenAda",
             "MenAdaPar", "MenAdaAda", "MenSerPro", "MenFunCar", "MenGraVisFil", "MenGraPriFil"});
}

TEST_F(MsgTest, RightAfterTheStartReadingAndServicesAreOn) {
  expectOn({"MenDat", "MenDatLet", "MenDatMod", "MenFun", "MenFunSel", "MenFunLet", "MenFunMod", "MenGra",
            "MenGraLetFil", "MenGraModFil", "MenSer", "MenSerCal", "MenSerOpz", "MenSerErr", "MenSerImpDir",
            "MenSerImpGra"});
  EXPECT_FALSE(window.menuChecked.at("MenSerErr"));
}

TEST_F(MsgTest, RightAfterTheStartThePanelsSayNo) {
  EXPECT_EQ(window.panels, (std::map<int, std::string>{{1, "Dati: Nessuno"},
                                                       {2, "Fun.: Nessuno"},
                                                       {3, "Gra.: Nessuno"},
                                                       {4, "Fun.Att.: NO"},
                                                       {5, "Par.Var.: NO"}}));
}

TEST_F(MsgTest, DataAloneTurnOnTheirOwnEntries) {
  session.loaded.DataDefined = kTrue;
  refresh();
  expectOn({"MenDatTra", "MenDatSav", "MenGraDat", "MenGraDatVis"});
  expectOff(
      {"MenGraDatGra", "MenDatSim", "MenGraFun", "MenGraFunVis", "MenGraDif", "MenGraDifVis", "MenAda"});
}

TEST_F(MsgTest, SavingTheDataFigureNeedsATextAndData) {
  session.figures.GraphText[1] = "\\FINE";
  refresh();
  expectOff({"MenGraDatGra"});
  session.loaded.DataDefined = kTrue;
  refresh();
  expectOn({"MenGraDatGra"});
  session.figures.GraphText[1] = "   ";
  refresh();
  expectOff({"MenGraDatGra"});
}

TEST_F(MsgTest, TheSimulationIsOnWheneverAParameterIsFree) {
  session.analysis.ParVar = kTrue;
  refresh();
  expectOn({"MenDatSim"});
  session.analysis.FunDefined = kTrue;
  refresh();
  expectOn({"MenDatSim"});
  session.analysis.ParVar = kFalse;
  refresh();
  expectOff({"MenDatSim"});
}

TEST_F(MsgTest, FiguresWithAFunctionNeedParametersAndData) {
  session.analysis.ParametersSet = kTrue;
  refresh();
  expectOff({"MenGraFun", "MenGraFunVis", "MenGraDif", "MenGraDifVis"});
  session.loaded.DataDefined = kTrue;
  refresh();
  expectOn({"MenGraFun", "MenGraFunVis", "MenGraDif", "MenGraDifVis"});
  expectOff({"MenGraFunGra", "MenGraDifGra", "MenGraDifSav"});
  session.analysis.ParametersSet = kFalse;
  refresh();
  expectOff({"MenGraFun", "MenGraFunVis", "MenGraDif", "MenGraDifVis"});
}

TEST_F(MsgTest, AFreeParameterOpensTheTwoSubMenusAndTheFit) {
  session.analysis.ParVar = kTrue;
  refresh();
  expectOn({"MenGraFun", "MenGraDif", "MenAdaAda", "MenDatSim"});
  expectOff({"MenGraFunVis", "MenGraDifVis"});
}

TEST_F(MsgTest, SavingAFigureNeedsItsTextAndItsDrawingEntry) {
  session.figures.GraphText[2] = "a";
  session.figures.GraphText[3] = "b";
  session.figures.DiffText = "c";
  session.analysis.ParVar = kTrue;
  refresh();
  expectOff({"MenGraFunGra", "MenGraDifGra", "MenGraDifSav"});
  session.analysis.ParametersSet = session.loaded.DataDefined = kTrue;
  refresh();
  expectOn({"MenGraFunGra", "MenGraDifGra", "MenGraDifSav"});
  session.figures.GraphText[2] = session.figures.GraphText[3] = session.figures.DiffText = " ";
  refresh();
  expectOff({"MenGraFunGra", "MenGraDifGra", "MenGraDifSav"});
}

TEST_F(MsgTest, AFunctionWithoutDataOpensTheParametersOnly) {
  session.analysis.FunDefined = kTrue;
  refresh();
  EXPECT_EQ(window.panels[4], "Fun.Att.: SI");
  expectOn({"MenAda", "MenAdaPar"});
  expectOff({"MenAdaAda", "MenGraFun", "MenGraDif"});
}

TEST_F(MsgTest, WhatIsOnlyTurnedOnStaysOn) {
  session.analysis.FunDefined = session.analysis.ParVar = session.loaded.FunFileRead =
      session.loaded.GraDefined = kTrue;
  refresh();
  session.analysis.FunDefined = session.analysis.ParVar = session.loaded.FunFileRead =
      session.loaded.GraDefined = kFalse;
  refresh();
  expectOn({"MenFunCar", "MenGraVisFil", "MenGraPriFil", "MenAda", "MenAdaPar", "MenAdaAda"});
  EXPECT_EQ(window.panels[4], "Fun.Att.: NO");
  EXPECT_EQ(window.panels[5], "Par.Var.: NO");
  EXPECT_EQ(window.panels[2], "Fun.: Nessuno");
}

TEST_F(MsgTest, LeavesThePropagationAsTheFunctionCommandsSetIt) {
  session.analysis.FunDefined = kTrue;
  EXPECT_FALSE(sessionDisplay(session).enabled.contains("MenSerPro"));
}

TEST_F(MsgTest, PanelsShowTheNameWithoutItsFolder) {
  session.loaded.DataDefined = session.loaded.FunFileRead = session.loaded.GraDefined = kTrue;
  session.loaded.DataFile = "C:\\DATI\\LUGLIO\\ MOLLA.DAT ";
  session.loaded.FunFile = "/home/u/" + std::string(300, 'x') + "/LIB.FCN";
  session.loaded.GraFile = "F.GRA";
  refresh();
  EXPECT_EQ(window.panels[1], "Dati: MOLLA.DAT");
  EXPECT_EQ(window.panels[2], "Fun.: LIB.FCN");
  EXPECT_EQ(window.panels[3], "Gra.: F.GRA");
}

TEST_F(MsgTest, TheFunctionFileIsShownOnlyOnceItWasRead) {
  session.loaded.FunFile = "/home/u/LIB.FCN";
  refresh();
  EXPECT_EQ(window.panels[2], "Fun.: Nessuno");
  expectOff({"MenFunCar"});
}

TEST_F(MsgTest, TwiceGivesTheSameStateForEveryCombinationOfFlags) {
  for (int bits = 0; bits < 1 << 9; ++bits) {
    const auto flag = [&](int bit) { return toFlag((bits >> bit & 1) != 0); };
    session.loaded.DataDefined = flag(0);
    session.analysis.FunDefined = flag(1);
    session.analysis.ParVar = flag(2);
    session.analysis.ParametersSet = flag(3);
    session.loaded.FunFileRead = flag(4);
    session.loaded.GraDefined = flag(5);
    session.figures.GraphText[1] = session.figures.GraphText[2] = flag(6) != 0 ? "x" : "";
    session.figures.GraphText[3] = flag(7) != 0 ? "x" : "";
    session.figures.DiffText = flag(8) != 0 ? "x" : "";
    refresh();
    const auto once = window.menuEnabled;
    const auto panels = window.panels;
    refresh();
    EXPECT_EQ(window.menuEnabled, once) << bits;
    EXPECT_EQ(window.panels, panels) << bits;
  }
}

TEST_F(MsgTest, NamesOnlyEntriesOfTheTable) {
  session.loaded.DataDefined = session.analysis.FunDefined = session.analysis.ParVar =
      session.loaded.FunFileRead = session.loaded.GraDefined = kTrue;
  for (const auto& [control, on] : sessionDisplay(session).enabled) {
    EXPECT_EQ(std::ranges::count(commandTable(), control, &Command::control), 1) << control;
  }
}

TEST(FileBaseName, IsWhatStandsBehindTheLastSeparator) {
  EXPECT_EQ(FileBaseName("C:\\A\\X.DAT"), "X.DAT");
  EXPECT_EQ(FileBaseName("/home/u/X.DAT"), "X.DAT");
  EXPECT_EQ(FileBaseName("X.DAT"), "X.DAT");
  EXPECT_EQ(FileBaseName(""), "");
}

}  // namespace
}  // namespace vk
