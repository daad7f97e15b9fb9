#include "commands/FitCommand.h"

#include "commands/DisplayRefresh.h"
#include "commands/ParameterCommands.h"
#include "doubles/TestPorts.h"
#include "doubles/Tolerances.h"
#include "tests/commands/PropagationHelp.h"

namespace vk {
namespace {

/// Counts how often the fit asks for the time.
class CountingClock : public Clock {
 public:
  float timer() override {
    ++asked;
    return 0;
  }
  int asked = 0;
};

class FitCommandTest : public PropagationTest {
 protected:
  FitCommandTest() {
    choose(session, 2, 1);
    DataSet& data = session.loaded.data;
    data.allocate(4, kFalse);
    const double y[] = {3.1, 4.9, 7.2, 8.8};
    for (int i = 1; i <= 4; ++i) {
      data.Xpnt[i] = i;
      data.Ypnt[i] = y[i - 1];
      data.ErrYpnt[i] = 0.2;
    }
    session.loaded.DataDefined = kTrue;
    set(1, 1, 1);
    set(2, 0, 1);
    classifyParameters(session.analysis.par);
    markParametersSet(session);
  }
  void fit() { MenAdaAda(session, TestPorts(dialogs, window, output, watch)); }
  void expectRefusal(const std::string& text) {
    dialogs.expectBox();
    fit();
    EXPECT_EQ(dialogs.boxes.back(), (ScriptedDialogs::Box{"ERRORE !", text}));
    EXPECT_TRUE(output.requests.empty());
    EXPECT_EQ(watch.asked, 0);
  }
  CountingClock watch;
};

TEST_F(FitCommandTest, FitsAndShowsTheScreen) {
  fit();
  EXPECT_NEAR(session.analysis.par.ParValues[1], 1.94, kThreeDigits);
  EXPECT_TRUE(output.isOpen());
  EXPECT_EQ(output.request().caption, "VOR_KEL: Adattamento Funzione Dati");
  EXPECT_THAT(screen(), testing::HasSubstr("Completata"));
  EXPECT_GT(watch.asked, 0);
}

TEST_F(FitCommandTest, AFitThatFailsClosesItsScreen) {
  load("a,b", "a*x+0*b");
  set(1, 1, 1);
  set(2, 1, 1);
  classifyParameters(session.analysis.par);
  markParametersSet(session);
  dialogs.expectBox();
  fit();
  ASSERT_EQ(dialogs.boxes.size(), 1U);
  EXPECT_EQ(dialogs.boxes[0].text, "E( 2) ECCESSIVAMENTE PICCOLO!   <*> per Continuare");
  EXPECT_FALSE(output.isOpen());
}

TEST_F(FitCommandTest, WithoutDataOrFunctionItSaysWhatIsMissing) {
  session.loaded.DataDefined = kFalse;
  expectRefusal("Dati NON Definiti!  <*> per Continuare");
  session.analysis.FunDefined = kFalse;
  expectRefusal("Dati e Funzione NON definiti!  <*> per Continuare");
  session.loaded.DataDefined = kTrue;
  expectRefusal("Funzione NON Definita!  <*> per Continuare");
}

TEST_F(FitCommandTest, AfterAPropagationTheParametersAreMissingUntilTheyAreEnteredAgain) {
  Msg(session, window);
  EXPECT_TRUE(window.menuEnabled[Control::MenDatSim]);
  ScriptedInputForm form;
  CyclingRandom random({0.25F, 0.75F});
  form.execute({"1", "2", "3", "0", "-1", "0"});
  MenSerPro(session, TestPorts(form, dialogs, window, output, files, clock, random));
  EXPECT_EQ(session.analysis.ParVar, kFalse);
  EXPECT_FALSE(window.menuEnabled[Control::MenDatSim]);
  EXPECT_TRUE(window.menuEnabled[Control::MenAdaAda]);
  output.requests.clear();
  expectRefusal("Parametri NON Definiti!  <*> per Continuare");

  form.execute({"2", "3", "1", "1"});
  MenAdaPar(session, TestPorts(form, window));
  EXPECT_TRUE(window.menuEnabled[Control::MenDatSim]);
  fit();
  EXPECT_NEAR(session.analysis.par.ParValues[1], 1.94, kThreeDigits);
}

}  // namespace
}  // namespace vk
