#include "session/Msg.h"

#include <algorithm>

#include "doubles/Doubles.h"
#include "doubles/MemoryFiles.h"
#include "session/Commands.h"
#include "session/StartUp.h"

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
  session.DataDefined = kTrue;
  refresh();
  expectOn({"MenDatTra", "MenDatSav", "MenGraDat", "MenGraDatVis"});
  expectOff(
      {"MenGraDatGra", "MenDatSim", "MenGraFun", "MenGraFunVis", "MenGraDif", "MenGraDifVis", "MenAda"});
}

TEST_F(MsgTest, SavingTheDataFigureNeedsATextAndData) {
  session.GraphText[1] = "\\FINE";
  refresh();
  expectOff({"MenGraDatGra"});
  session.DataDefined = kTrue;
  refresh();
  expectOn({"MenGraDatGra"});
  session.GraphText[1] = "   ";
  refresh();
  expectOff({"MenGraDatGra"});
}

TEST_F(MsgTest, TheSimulationIsOnWheneverAParameterIsFree) {
  session.ParVar = kTrue;
  refresh();
  expectOn({"MenDatSim"});
  session.FunDefined = kTrue;
  refresh();
  expectOn({"MenDatSim"});
  session.ParVar = kFalse;
  refresh();
  expectOff({"MenDatSim"});
}

TEST_F(MsgTest, FiguresWithAFunctionNeedParametersAndData) {
  session.ParametersSet = kTrue;
  refresh();
  expectOff({"MenGraFun", "MenGraFunVis", "MenGraDif", "MenGraDifVis"});
  session.DataDefined = kTrue;
  refresh();
  expectOn({"MenGraFun", "MenGraFunVis", "MenGraDif", "MenGraDifVis"});
  expectOff({"MenGraFunGra", "MenGraDifGra", "MenGraDifSav"});
  session.ParametersSet = kFalse;
  refresh();
  expectOff({"MenGraFun", "MenGraFunVis", "MenGraDif", "MenGraDifVis"});
}

TEST_F(MsgTest, AFreeParameterOpensTheTwoSubMenusAndTheFit) {
  session.ParVar = kTrue;
  refresh();
  expectOn({"MenGraFun", "MenGraDif", "MenAdaAda", "MenDatSim"});
  expectOff({"MenGraFunVis", "MenGraDifVis"});
}

TEST_F(MsgTest, SavingAFigureNeedsItsTextAndItsDrawingEntry) {
  session.GraphText[2] = "a";
  session.GraphText[3] = "b";
  session.DiffText = "c";
  session.ParVar = kTrue;
  refresh();
  expectOff({"MenGraFunGra", "MenGraDifGra", "MenGraDifSav"});
  session.ParametersSet = session.DataDefined = kTrue;
  refresh();
  expectOn({"MenGraFunGra", "MenGraDifGra", "MenGraDifSav"});
  session.GraphText[2] = session.GraphText[3] = session.DiffText = " ";
  refresh();
  expectOff({"MenGraFunGra", "MenGraDifGra", "MenGraDifSav"});
}

TEST_F(MsgTest, AFunctionWithoutDataOpensTheParametersOnly) {
  session.FunDefined = kTrue;
  refresh();
  EXPECT_EQ(window.panels[4], "Fun.Att.: SI");
  expectOn({"MenAda", "MenAdaPar"});
  expectOff({"MenAdaAda", "MenGraFun", "MenGraDif"});
}

TEST_F(MsgTest, WhatIsOnlyTurnedOnStaysOn) {
  session.FunDefined = session.ParVar = session.FunFileRead = session.GraDefined = kTrue;
  refresh();
  session.FunDefined = session.ParVar = session.FunFileRead = session.GraDefined = kFalse;
  refresh();
  expectOn({"MenFunCar", "MenGraVisFil", "MenGraPriFil", "MenAda", "MenAdaPar", "MenAdaAda"});
  EXPECT_EQ(window.panels[4], "Fun.Att.: NO");
  EXPECT_EQ(window.panels[5], "Par.Var.: NO");
  EXPECT_EQ(window.panels[2], "Fun.: Nessuno");
}

TEST_F(MsgTest, LeavesThePropagationAsTheFunctionCommandsSetIt) {
  session.FunDefined = kTrue;
  EXPECT_FALSE(sessionDisplay(session).enabled.contains("MenSerPro"));
}

TEST_F(MsgTest, PanelsShowTheNameWithoutItsFolder) {
  session.DataDefined = session.FunFileRead = session.GraDefined = kTrue;
  session.DataFile = "C:\\DATI\\LUGLIO\\ MOLLA.DAT ";
  session.FunFile = "/home/u/" + std::string(300, 'x') + "/LIB.FCN";
  session.GraFile = "F.GRA";
  refresh();
  EXPECT_EQ(window.panels[1], "Dati: MOLLA.DAT");
  EXPECT_EQ(window.panels[2], "Fun.: LIB.FCN");
  EXPECT_EQ(window.panels[3], "Gra.: F.GRA");
}

TEST_F(MsgTest, TheFunctionFileIsShownOnlyOnceItWasRead) {
  session.FunFile = "/home/u/LIB.FCN";
  refresh();
  EXPECT_EQ(window.panels[2], "Fun.: Nessuno");
  expectOff({"MenFunCar"});
}

TEST_F(MsgTest, TwiceGivesTheSameStateForEveryCombinationOfFlags) {
  for (int bits = 0; bits < 1 << 9; ++bits) {
    const auto flag = [&](int bit) { return toFlag((bits >> bit & 1) != 0); };
    session.DataDefined = flag(0);
    session.FunDefined = flag(1);
    session.ParVar = flag(2);
    session.ParametersSet = flag(3);
    session.FunFileRead = flag(4);
    session.GraDefined = flag(5);
    session.GraphText[1] = session.GraphText[2] = flag(6) != 0 ? "x" : "";
    session.GraphText[3] = flag(7) != 0 ? "x" : "";
    session.DiffText = flag(8) != 0 ? "x" : "";
    refresh();
    const auto once = window.menuEnabled;
    const auto panels = window.panels;
    refresh();
    EXPECT_EQ(window.menuEnabled, once) << bits;
    EXPECT_EQ(window.panels, panels) << bits;
  }
}

TEST_F(MsgTest, NamesOnlyEntriesOfTheTable) {
  session.DataDefined = session.FunDefined = session.ParVar = session.FunFileRead = session.GraDefined =
      kTrue;
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
