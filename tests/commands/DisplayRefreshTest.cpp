#include "commands/DisplayRefresh.h"

#include "commands/StartUp.h"
#include "doubles/ControlNames.h"
#include "doubles/Doubles.h"
#include "doubles/MemoryFiles.h"
#include "session/Session.h"

namespace vk {
namespace {

class MsgTest : public testing::Test {
 protected:
  MsgTest() {
    setFirstMenus(window);
    Msg(session, window);
  }

  void refresh() { Msg(session, window); }
  void expectOn(std::initializer_list<Control> controls) { expect(controls, true); }
  void expectOff(std::initializer_list<Control> controls) { expect(controls, false); }

  Session session;
  RecordingMainWindow window;

 private:
  void expect(std::initializer_list<Control> controls, bool on) {
    for (const Control control : controls) EXPECT_EQ(window.menuEnabled.at(control), on) << control;
  }
};

TEST_F(MsgTest, RightAfterTheStartTheAnalysisIsOff) {
  expectOff({Control::MenDatSav, Control::MenDatTra, Control::MenDatSim, Control::MenGraDat,
             Control::MenGraFun, Control::MenGraDif, Control::MenAda, Control::MenAdaPar, Control::MenAdaAda,
             Control::MenSerPro, Control::MenFunCar, Control::MenGraVisFil, Control::MenGraPriFil});
}

TEST_F(MsgTest, RightAfterTheStartReadingAndServicesAreOn) {
  expectOn({Control::MenDat, Control::MenDatLet, Control::MenDatMod, Control::MenFun, Control::MenFunSel,
            Control::MenFunLet, Control::MenFunMod, Control::MenGra, Control::MenGraLetFil,
            Control::MenGraModFil, Control::MenSer, Control::MenSerCal, Control::MenSerOpz,
            Control::MenSerErr, Control::MenSerImpDir, Control::MenSerImpGra});
  EXPECT_FALSE(window.menuChecked.at(Control::MenSerErr));
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
  expectOn({Control::MenDatTra, Control::MenDatSav, Control::MenGraDat, Control::MenGraDatVis});
  expectOff({Control::MenGraDatGra, Control::MenDatSim, Control::MenGraFun, Control::MenGraFunVis,
             Control::MenGraDif, Control::MenGraDifVis, Control::MenAda});
}

TEST_F(MsgTest, SavingTheDataFigureNeedsATextAndData) {
  session.figures.GraphText[1] = "\\FINE";
  refresh();
  expectOff({Control::MenGraDatGra});
  session.loaded.DataDefined = kTrue;
  refresh();
  expectOn({Control::MenGraDatGra});
  session.figures.GraphText[1] = "   ";
  refresh();
  expectOff({Control::MenGraDatGra});
}

TEST_F(MsgTest, TheSimulationIsOnWheneverAParameterIsFree) {
  session.analysis.ParVar = kTrue;
  refresh();
  expectOn({Control::MenDatSim});
  session.analysis.FunDefined = kTrue;
  refresh();
  expectOn({Control::MenDatSim});
  session.analysis.ParVar = kFalse;
  refresh();
  expectOff({Control::MenDatSim});
}

TEST_F(MsgTest, FiguresWithAFunctionNeedParametersAndData) {
  session.analysis.ParametersSet = kTrue;
  refresh();
  expectOff({Control::MenGraFun, Control::MenGraFunVis, Control::MenGraDif, Control::MenGraDifVis});
  session.loaded.DataDefined = kTrue;
  refresh();
  expectOn({Control::MenGraFun, Control::MenGraFunVis, Control::MenGraDif, Control::MenGraDifVis});
  expectOff({Control::MenGraFunGra, Control::MenGraDifGra, Control::MenGraDifSav});
  session.analysis.ParametersSet = kFalse;
  refresh();
  expectOff({Control::MenGraFun, Control::MenGraFunVis, Control::MenGraDif, Control::MenGraDifVis});
}

TEST_F(MsgTest, AFreeParameterOpensTheTwoSubMenusAndTheFit) {
  session.analysis.ParVar = kTrue;
  refresh();
  expectOn({Control::MenGraFun, Control::MenGraDif, Control::MenAdaAda, Control::MenDatSim});
  expectOff({Control::MenGraFunVis, Control::MenGraDifVis});
}

TEST_F(MsgTest, SavingAFigureNeedsItsTextAndItsDrawingEntry) {
  session.figures.GraphText[2] = "a";
  session.figures.GraphText[3] = "b";
  session.figures.DiffText = "c";
  session.analysis.ParVar = kTrue;
  refresh();
  expectOff({Control::MenGraFunGra, Control::MenGraDifGra, Control::MenGraDifSav});
  session.analysis.ParametersSet = session.loaded.DataDefined = kTrue;
  refresh();
  expectOn({Control::MenGraFunGra, Control::MenGraDifGra, Control::MenGraDifSav});
  session.figures.GraphText[2] = session.figures.GraphText[3] = session.figures.DiffText = " ";
  refresh();
  expectOff({Control::MenGraFunGra, Control::MenGraDifGra, Control::MenGraDifSav});
}

TEST_F(MsgTest, AFunctionWithoutDataOpensTheParametersOnly) {
  session.analysis.FunDefined = kTrue;
  refresh();
  EXPECT_EQ(window.panels[4], "Fun.Att.: SI");
  expectOn({Control::MenAda, Control::MenAdaPar});
  expectOff({Control::MenAdaAda, Control::MenGraFun, Control::MenGraDif});
}

TEST_F(MsgTest, WhatIsOnlyTurnedOnStaysOn) {
  session.analysis.FunDefined = session.analysis.ParVar = session.loaded.FunFileRead =
      session.loaded.GraDefined = kTrue;
  refresh();
  session.analysis.FunDefined = session.analysis.ParVar = session.loaded.FunFileRead =
      session.loaded.GraDefined = kFalse;
  refresh();
  expectOn({Control::MenFunCar, Control::MenGraVisFil, Control::MenGraPriFil, Control::MenAda,
            Control::MenAdaPar, Control::MenAdaAda});
  EXPECT_EQ(window.panels[4], "Fun.Att.: NO");
  EXPECT_EQ(window.panels[5], "Par.Var.: NO");
  EXPECT_EQ(window.panels[2], "Fun.: Nessuno");
}

TEST_F(MsgTest, LeavesThePropagationAsTheFunctionCommandsSetIt) {
  session.analysis.FunDefined = kTrue;
  EXPECT_FALSE(sessionDisplay(session).enabled.contains(Control::MenSerPro));
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
  expectOff({Control::MenFunCar});
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

TEST(FileBaseName, IsWhatStandsBehindTheLastSeparator) {
  EXPECT_EQ(FileBaseName("C:\\A\\X.DAT"), "X.DAT");
  EXPECT_EQ(FileBaseName("/home/u/X.DAT"), "X.DAT");
  EXPECT_EQ(FileBaseName("X.DAT"), "X.DAT");
  EXPECT_EQ(FileBaseName(""), "");
}

}  // namespace
}  // namespace vk
