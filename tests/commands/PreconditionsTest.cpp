#include "commands/Preconditions.h"

#include "grafile/FigureKind.h"

#include "doubles/ScriptedDialogs.h"
#include "doubles/TestPorts.h"

namespace vk {
namespace {

class PreconditionsTest : public testing::Test {
 protected:
  void set(bool function, bool data, bool parameters = false) {
    session.analysis.FunDefined = toFlag(function);
    session.loaded.DataDefined = toFlag(data);
    session.analysis.ParVar = toFlag(parameters);
  }
  void expectRefusedFigure(int figure, const char* text) {
    dialogs.expectBox();
    EXPECT_FALSE(canDrawFigure(session, dialogs, figure));
    EXPECT_EQ(dialogs.boxes.back(), (ScriptedDialogs::Box{"VOR_KEL", text}));
  }
  void expectRefusedFit(const char* text) {
    dialogs.expectBox();
    EXPECT_FALSE(canFit(session, TestPorts(dialogs)));
    EXPECT_EQ(dialogs.boxes.back(), (ScriptedDialogs::Box{"ERRORE !", text}));
  }

  Session session;
  ScriptedDialogs dialogs;
};

TEST_F(PreconditionsTest, TheDataFigureNeedsDataOnly) {
  expectRefusedFigure(kDataFigure, "Dati NON Definiti!     <*> per Continuare");
  set(false, true);
  EXPECT_TRUE(canDrawFigure(session, dialogs, kDataFigure));
}

TEST_F(PreconditionsTest, FiguresWithAFunctionTellWhatIsMissing) {
  for (const int figure : {kFunctionFigure, kDifferencesFigure}) {
    set(false, true);
    expectRefusedFigure(figure, "Funzione NON Definita!     <*> per Continuare");
    set(true, false);
    expectRefusedFigure(figure, "Dati NON Definiti!     <*> per Continuare");
    set(false, false);
    expectRefusedFigure(figure, "Dati e Funzione NON definiti!     <*> per Continuare");
    set(true, true);
    EXPECT_TRUE(canDrawFigure(session, dialogs, figure));
  }
}

TEST_F(PreconditionsTest, TheFitTellsWhatIsMissing) {
  set(false, true, true);
  expectRefusedFit("Funzione NON Definita!  <*> per Continuare");
  set(true, false, true);
  expectRefusedFit("Dati NON Definiti!  <*> per Continuare");
  set(false, false);
  expectRefusedFit("Dati e Funzione NON definiti!  <*> per Continuare");
  set(true, true, false);
  expectRefusedFit("Parametri NON Definiti!  <*> per Continuare");
}

TEST_F(PreconditionsTest, TheFitDoesNotMissParametersBeforeDataAndFunctionAreThere) {
  set(true, false, false);
  expectRefusedFit("Dati NON Definiti!  <*> per Continuare");
}

TEST_F(PreconditionsTest, WithEverythingThereTheFitStarts) {
  set(true, true, true);
  EXPECT_TRUE(canFit(session, TestPorts(dialogs)));
}

}  // namespace
}  // namespace vk
