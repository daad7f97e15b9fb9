#include "session/Session.h"

#include "doubles/Doubles.h"
#include "doubles/MemoryFiles.h"
#include "session/Commands.h"
#include "session/StartUp.h"

namespace vk {
namespace {

TEST(Session, EveryFieldHasItsFirstValue) {
  const Session session;
  EXPECT_EQ(session.DataExt, "DAT");
  EXPECT_EQ(session.FunExt, "FCN");
  EXPECT_EQ(session.GraExt, "GRA");
  EXPECT_EQ(session.WorkRow, 0);
  EXPECT_EQ(session.DataFile, "Nessuno");
  EXPECT_EQ(session.FunFile, "Nessuno");
  EXPECT_EQ(session.GraFile, "");
  for (const Flag flag : {session.DataDefined, session.FunFileRead, session.FunDefined, session.ParametersSet,
                          session.ParVar, session.GraDefined, session.ShowErrors, session.FitRunning,
                          session.PropagationMode, session.TraceEnabled}) {
    EXPECT_EQ(flag, 0);
  }
  EXPECT_EQ(session.ErrFlag, 0);
  EXPECT_EQ(session.TraceText, "");
  EXPECT_EQ(session.DiffText, "");
  for (const std::string& text : session.GraphText) EXPECT_EQ(text, "");
  for (const float scale : session.GraphScale) EXPECT_EQ(scale, 1.0F);
  for (const float scale : session.GraphScaleSaved) EXPECT_EQ(scale, 1.0F);
  EXPECT_EQ(session.Landscape, -1);
  EXPECT_EQ(session.BackImage, 0);
  EXPECT_EQ(session.BackImageMax, 2);
  EXPECT_EQ(session.BeepOn, -1);
  EXPECT_EQ(session.BeepFreqLow, 500);
  EXPECT_EQ(session.BeepFreqHigh, 1000);
  EXPECT_EQ(session.BeepLenLow, 1);
  EXPECT_EQ(session.BeepLenHigh, 1);
}

TEST(Session, TheRecentListsAreEmptyAndHoldFour) {
  const Session session;
  for (const RecentList* list : {&session.RecentData, &session.RecentFun, &session.RecentGra}) {
    EXPECT_EQ(list->RecentMax, 4);
    EXPECT_EQ(list->RecentCount, 0);
    EXPECT_EQ(list->pick, 0);
    EXPECT_EQ(list->files.upper(), 4);
    for (int i = 1; i <= 4; ++i) EXPECT_EQ(list->files[i], "");
  }
}

TEST(Session, TheFirstDataSetHasRoomForAHundredPoints) {
  const Session session;
  EXPECT_EQ(session.data.NumPnt, 100);
  for (const Array<double>* column : {&session.data.Xpnt, &session.data.Ypnt, &session.data.ErrXpnt,
                                      &session.data.ErrYpnt, &session.data.ErrEff}) {
    EXPECT_EQ(column->upper(), 100);
  }
  EXPECT_EQ(session.data.FunX.upper(), 50);
  EXPECT_EQ(session.data.FunY.upper(), 50);
  EXPECT_EQ(session.data.kXpntErr, 0);
}

TEST(Session, TheFirstParameterSetHasRoomForFive) {
  const Session session;
  EXPECT_EQ(session.par.ParValues.upper(), 5);
  EXPECT_EQ(session.par.ParDeltas.upper(), 5);
  EXPECT_EQ(session.par.FreeIndex.upper(), 6);
  EXPECT_EQ(session.fun.InnerIndex, 0);
}

TEST(Session, TheSimulationStartsFromNothing) {
  const Session session;
  EXPECT_EQ(session.SimFirstTime, -1);
  EXPECT_EQ(session.sim.SimErrX, 0);
  EXPECT_EQ(session.sim.SimErrY, 0);
  EXPECT_EQ(session.sim.SimXMin, 0);
  EXPECT_EQ(session.sim.SimXMax, 0);
  EXPECT_EQ(session.sim.SimPoints, 0);
  EXPECT_EQ(session.sim.SimErrXAbs, 0);
  EXPECT_EQ(session.sim.SimErrYAbs, 0);
}

TEST(Session, HasTheFourFontsOfTheForms) {
  const Session session;
  const auto expectFont = [](const FontSpec& font, const char* face, int size, int charset) {
    EXPECT_EQ(font.face, face);
    EXPECT_EQ(font.size, size);
    EXPECT_EQ(font.charset, charset);
    EXPECT_FALSE(font.bold);
  };
  expectFont(session.FontLabel, "Arial", 9, 0);
  expectFont(session.FontFixed, "Courier New", 10, 255);
  expectFont(session.FontEdit, "Courier New", 10, 255);
  expectFont(session.FontSmall, "Courier New", 8, 255);
}

TEST(StartUp, TheFoldersAreTheProgramsWhereItCanBeWritten) {
  Session session;
  MemoryFiles files;
  setFirstFolders(session, files);
  EXPECT_EQ(session.DataDir, "/program");
  EXPECT_EQ(session.FunDir, "/program");
  EXPECT_EQ(session.GraDir, "/program");
  for (const std::string& folder : session.WorkDir) EXPECT_EQ(folder, "/program");
  for (const std::string& drive : session.WorkDrive) EXPECT_EQ(drive, "");
}

TEST(StartUp, OtherwiseTheFoldersAreTheDocumentsOrTheCurrentOne) {
  MemoryFiles files;
  files.notWritable.insert("/program");
  EXPECT_EQ(workingFolder(files), "/documents");
  files.notWritable.insert("/documents");
  EXPECT_EQ(workingFolder(files), "/current");
}

TEST(StartUp, ThePanelsBeginWithTheTextsOfTheLoadEvent) {
  EXPECT_EQ(kStartPanels, (std::array<const char*, 5>{"Dati: Nessuno ", "Fun.: Nessuno ", "Grafici: Nessuno ",
                                                      "Fun.Att.: NO ", "Par.Var.: NO "}));
}

TEST(StartUp, SetsTheStateOfEveryMenuEntry) {
  RecordingMainWindow window;
  setFirstMenus(window);
  EXPECT_EQ(window.menuEnabled.size(), commandTable().size());
  EXPECT_EQ(window.menuVisible.size(), commandTable().size());
  for (const char* control : {"MenSerMod", "MenFunVar", "MenDatOld(0)", "MenFunOld(3)", "MenGraOld(1)"}) {
    EXPECT_FALSE(window.menuVisible.at(control)) << control;
  }
  EXPECT_TRUE(window.menuVisible.at("MenDatLet"));
  EXPECT_EQ(window.menuChecked, (std::map<std::string, bool>{{"MenSerErr", false}}));
}

}  // namespace
}  // namespace vk
