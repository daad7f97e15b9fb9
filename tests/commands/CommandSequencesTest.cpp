#include "commands/DataCommands.h"
#include "commands/FitCommand.h"
#include "commands/FunctionCommands.h"
#include "commands/ParameterCommands.h"
#include "commands/SimulationCommand.h"
#include "commands/TransformationCommand.h"
#include "doubles/TestPorts.h"
#include "doubles/Tolerances.h"
#include "platform/system/SystemRandom.h"
#include "tests/commands/PropagationHelp.h"

namespace vk {
namespace {

/// Several commands one after the other, as a user gives them.
class CommandSequenceTest : public PropagationTest {
 protected:
  void read(const std::string& name) {
    dialogs.pick(name);
    MenDatLet(session, TestPorts(files, dialogs, output, window));
  }
  void selectFunction(int inner, int outer) {
    functions.select(inner, outer);
    MenFunSel(session, TestPorts(window, functions));
  }
  /// Reads a function file of one function and makes it current.
  void takeFromFile(const std::string& text) {
    files.content["/data/LIB.FCN"] = text;
    dialogs.pick("/data/LIB.FCN");
    MenFunLet(session, TestPorts(files, dialogs, output, window, functions));
    functions.load(1);
    MenFunCar(session, TestPorts(window, functions));
    selectFunction(6, 1);
  }
  void enterForFit(const std::vector<std::string>& fields) {
    form.execute(fields);
    MenAdaPar(session, TestPorts(form, window));
  }
  void fit() {
    MenAdaAda(session, TestPorts(dialogs, window, output, clock));
    fitted = session.analysis.par.ParValues;
  }
  void simulate() {
    MenDatSim(session, TestPorts(form, dialogs, window, output, clock, random));
    fitted = session.analysis.par.FreeValues;  // both are free
  }

  ScriptedFunctionForms functions{session};
  ScriptedInputForm form;
  SystemRandom random;
  Array<double> fitted;  ///< the values that the last fit left
};

TEST_F(CommandSequenceTest, ABellCurveIsFittedToTheSavedHistogramOfAPropagation) {
  selectFunction(1, 1);
  form.execute({"0", "20", "0", ".5"});
  MenSerPro(session, TestPorts(form, dialogs, window, output, files, clock, random));
  output.saveRoutine()();
  output.FrmOut_Exit();

  read("/data/Mon_Sim.DAT");
  takeFromFile("A,m,s\r\nA*EXP(-((x-m)/s)^2/2)\r\nGauss\r\n");
  enterForFit({"1", "19", "1", "1", "1", "1"});
  fit();
  EXPECT_THAT(screen(), testing::HasSubstr("Completata"));
  EXPECT_NEAR(session.analysis.par.ParValues[1], 0.7979, 0.03);
  EXPECT_NEAR(session.analysis.par.ParValues[2], 20, 0.02);
  EXPECT_NEAR(session.analysis.par.ParValues[3], 0.5, 0.02);
}

TEST_F(CommandSequenceTest, BehindAPropagationTheParametersOfAFitAreToBeEnteredAnew) {
  files.content["/data/LINE.DAT"] = "x\r\ny\r\n4\r\n0 1.1 .1\r\n1 2.9 .1\r\n2 5.1 .1\r\n3 6.9 .1\r\n";
  read("/data/LINE.DAT");
  selectFunction(2, 1);
  enterForFit({"2", "1", "1", "1"});
  EXPECT_TRUE(window.menuEnabled[Control::MenDatSim]);
  EXPECT_TRUE(window.menuEnabled[Control::MenAdaAda]);

  form.execute({"3", "2", "1", "0", "-.5", ".1"});
  MenSerPro(session, TestPorts(form, dialogs, window, output, files, clock, random));
  EXPECT_EQ(session.analysis.ParVar, kFalse);
  EXPECT_FALSE(window.menuEnabled[Control::MenDatSim]);
  EXPECT_TRUE(window.menuEnabled[Control::MenAdaAda]) << "it is never turned off here";
  EXPECT_EQ(window.panels[5], "Par.Var.: NO");

  dialogs.expectBox();
  fit();
  EXPECT_EQ(dialogs.boxes.back(),
            (ScriptedDialogs::Box{"ERRORE !", "Parametri NON Definiti!  <*> per Continuare"}));

  enterForFit({"1", "0", "1", "1"});
  EXPECT_TRUE(window.menuEnabled[Control::MenDatSim]);
  fit();
  EXPECT_THAT(screen(), testing::HasSubstr("Completata"));
  EXPECT_NEAR(fitted[1], 1.96, 0.01);
}

TEST_F(CommandSequenceTest, SimulatedDataAreSavedReadAndFittedAgain) {
  selectFunction(2, 1);
  enterForFit({"2", "1", "1", "1"});
  form.execute({"0", "10", "21", ".25", "1", "0", "0"});
  simulate();
  EXPECT_EQ(session.analysis.par.ParValues[1], 2);
  const Array<double> atOnce = fitted;
  dialogs.pick("/data/SIMULA.DAT");
  MenDatSav(session, TestPorts(files, dialogs));

  read("/data/SIMULA.DAT");
  EXPECT_EQ(session.loaded.data.NumPnt, 21);
  EXPECT_EQ(session.loaded.data.TitleX, "x");
  enterForFit({"1", "0", "1", "1"});
  fit();
  // The file has six digits of each number.
  EXPECT_NEAR(fitted[1], atOnce[1], kThreeDigits);
  EXPECT_NEAR(fitted[2], atOnce[2], kThreeDigits);
  EXPECT_NEAR(fitted[1], 2, 0.1);
}

TEST_F(CommandSequenceTest, TransformedDataAreFittedWithTheModelThatWasThere) {
  takeFromFile("p,q\r\np*x+q\r\nretta\r\n");
  enterForFit({"1", "0", "1", "1"});
  files.content["/data/EXP.DAT"] =
      "t\r\nN\r\n4\r\n1 2.7182818 .01\r\n2 7.3890561 .01\r\n3 20.085537 .01\r\n4 54.598150 .01\r\n";
  read("/data/EXP.DAT");
  form.execute({"t", "ln N", "x", "LOG(y)", "dy/y"});
  MenDatTra(session, TestPorts(form, dialogs, window));
  fit();
  EXPECT_NEAR(session.analysis.par.ParValues[1], 1, 1E-4);
  EXPECT_NEAR(session.analysis.par.ParValues[2], 0, kThreeDigits);
  EXPECT_THAT(screen(), testing::HasSubstr("y = retta"));
}

TEST_F(CommandSequenceTest, ASimulationWithErrorsOfXIsFittedTwice) {
  selectFunction(2, 1);
  enterForFit({"2", "1", "1", "1"});
  form.execute({"0", "10", "21", ".1", "1", ".2", "1"});
  simulate();
  EXPECT_EQ(session.loaded.data.kXpntErr, kTrue);
  EXPECT_NEAR(session.loaded.data.ErrEff[1], std::hypot(0.1, 2 * 0.2), 0.1);
  EXPECT_THAT(screen(), testing::HasSubstr("Completata"));
}

}  // namespace
}  // namespace vk
