#include "session/Session.h"

#include <gtest/gtest.h>

namespace vk {
namespace {

TEST(Session, EveryFieldHasItsFirstValue) {
  const Session session;
  EXPECT_EQ(session.files.DataExt, "DAT");
  EXPECT_EQ(session.files.FunExt, "FCN");
  EXPECT_EQ(session.files.GraExt, "GRA");
  EXPECT_EQ(session.files.WorkRow, 0);
  EXPECT_EQ(session.loaded.DataFile, "Nessuno");
  EXPECT_EQ(session.loaded.FunFile, "Nessuno");
  EXPECT_EQ(session.loaded.GraFile, "");
  for (const Flag flag : {session.loaded.DataDefined, session.loaded.FunFileRead, session.analysis.FunDefined,
                          session.analysis.ParametersSet, session.analysis.ParVar, session.loaded.GraDefined,
                          session.settings.ShowErrors, session.analysis.PropagationMode}) {
    EXPECT_EQ(flag, 0);
  }
  EXPECT_EQ(session.ErrFlag, 0);
  EXPECT_EQ(session.figures.DiffText, "");
  for (const std::string& text : session.figures.GraphText) EXPECT_EQ(text, "");
  for (const float scale : session.figures.GraphScale) EXPECT_EQ(scale, 1.0F);
  for (const float scale : session.figures.GraphScaleSaved) EXPECT_EQ(scale, 1.0F);
  EXPECT_EQ(session.figures.Landscape, -1);
  EXPECT_EQ(session.settings.BackImage, 0);
  EXPECT_EQ(session.settings.BeepOn, -1);
  EXPECT_EQ(session.settings.BeepFreqLow, 500);
  EXPECT_EQ(session.settings.BeepFreqHigh, 1000);
  EXPECT_EQ(session.settings.BeepLenLow, 1);
  EXPECT_EQ(session.settings.BeepLenHigh, 1);
}

TEST(Session, TheRecentListsAreEmptyAndHoldFour) {
  const Session session;
  for (const RecentList* list :
       {&session.files.RecentData, &session.files.RecentFun, &session.files.RecentGra}) {
    EXPECT_EQ(list->RecentMax, 4);
    EXPECT_EQ(list->RecentCount, 0);
    EXPECT_EQ(list->pick, 0);
    EXPECT_EQ(list->files.upper(), 4);
    for (int i = 1; i <= 4; ++i) EXPECT_EQ(list->files[i], "");
  }
}

TEST(Session, TheFirstDataSetHasRoomForAHundredPoints) {
  const Session session;
  EXPECT_EQ(session.loaded.data.NumPnt, 100);
  for (const Array<double>* column :
       {&session.loaded.data.Xpnt, &session.loaded.data.Ypnt, &session.loaded.data.ErrXpnt,
        &session.loaded.data.ErrYpnt, &session.loaded.data.ErrEff}) {
    EXPECT_EQ(column->upper(), 100);
  }
  EXPECT_EQ(session.loaded.data.kXpntErr, 0);
}

TEST(Session, TheFirstParameterSetHasRoomForFive) {
  const Session session;
  EXPECT_EQ(session.analysis.par.ParValues.upper(), 5);
  EXPECT_EQ(session.analysis.par.ParDeltas.upper(), 5);
  EXPECT_EQ(session.analysis.par.FreeIndex.upper(), 6);
  EXPECT_EQ(session.analysis.fun.InnerIndex, 0);
}

TEST(Session, TheSimulationStartsFromNothing) {
  const Session session;
  EXPECT_EQ(session.analysis.SimFirstTime, -1);
  EXPECT_EQ(session.analysis.sim.SimErrX, 0);
  EXPECT_EQ(session.analysis.sim.SimErrY, 0);
  EXPECT_EQ(session.analysis.sim.SimXMin, 0);
  EXPECT_EQ(session.analysis.sim.SimXMax, 0);
  EXPECT_EQ(session.analysis.sim.SimPoints, 0);
  EXPECT_EQ(session.analysis.sim.SimErrXAbs, 0);
  EXPECT_EQ(session.analysis.sim.SimErrYAbs, 0);
}

TEST(Session, HasTheFontsOfTheForms) {
  const Session session;
  const auto expectFont = [](const FontSpec& font, const char* face, int size) {
    EXPECT_EQ(font.face, face);
    EXPECT_EQ(font.size, size);
    EXPECT_FALSE(font.bold);
  };
  expectFont(session.settings.FontLabel, "Arial", 9);
  expectFont(session.settings.FontEdit, "Courier New", 10);
}

}  // namespace
}  // namespace vk
