#include "commands/ParameterCommands.h"

#include "base/Text.h"
#include "commands/FunctionChoice.h"
#include "doubles/Choices.h"
#include "doubles/Doubles.h"
#include "doubles/ScriptedForms.h"
#include "doubles/TestPorts.h"
#include "expr/Catalogue.h"
#include "numeric/Elementary.h"
#include "tests/commands/FormText.h"

namespace vk {
namespace {

class InitialParametersTest : public testing::Test {
 protected:
  InitialParametersTest() { BuildCatalogue(session.loaded.catalogue); }

  void take(int inner, int outer) { choose(session, inner, outer); }
  /// The number of columns of the form for a function text of this length.
  int columns(int textLength) {
    take(2, 1);
    session.analysis.fun.FunctionText = " " + std::string(static_cast<std::size_t>(textLength), 't') + " ";
    form.giveUp();
    MenAdaPar(session, TestPorts(form, window));
    return form.shown.back().InpCols;
  }
  /// Enters these values and second numbers for a fit.
  void enter(const std::vector<std::string>& fields) {
    form.execute(fields);
    MenAdaPar(session, TestPorts(form, window));
  }
  template <class T>
  std::vector<T> used(const Array<T>& table) const {
    const auto part = table.span(1, session.analysis.par.ParCount);
    return {part.begin(), part.end()};
  }

  Session session;
  RecordingMainWindow window;
  ScriptedInputForm form;
};

TEST_F(InitialParametersTest, TheFormOfAStraightLine) {
  take(2, 1);
  session.analysis.par.ParValues[1] = 0.5;
  session.analysis.par.ParValues[2] = -1234.5;
  session.analysis.par.ParDeltas[1] = 1;
  form.giveUp();
  MenAdaPar(session, TestPorts(form, window));
  ASSERT_EQ(form.shown.size(), 1U);
  EXPECT_EQ(form.callers[0], Form::kMain);
  EXPECT_EQ(describe(form.shown[0]),
            "VOR_KEL: Parametri Iniziali\n"
            "rows 9, cols 44, fields 4, frames 3, texts 6\n"
            "frame 1 1 9 44 3\n"
            "frame 3 1 6 22 3\n"
            "frame 3 22 6 44 3\n"
            "text 1 22 1 [Funzione]\n"
            "text 2 22 1 [ y = bx+c ]\n"
            "text 4 11 1 [Valore]\n"
            "text 5 11 1 [ Iniziale ]\n"
            "text 4 33 1 [  Variazione  ]\n"
            "text 5 33 1 [0 Cost. 1 Var.]\n"
            "field 7 5 -18 [.5] #Number label 7 2 3 [b]\n"
            "field 8 5 -18 [-1234.5] #Number label 8 2 3 [c]\n"
            "field 7 27 -18 [1] #Number label 7 24 3 [\xEB"
            "b]\n"
            "field 8 27 -18 [0] #Number label 8 24 3 [\xEB"
            "c]\n");
}

TEST_F(InitialParametersTest, TheFormOfAPropagationListsTheIndependentVariableFirst) {
  take(1, 8);
  session.analysis.par.ParValues[0] = 2;
  session.analysis.par.ParDeltas[0] = -0.25;
  form.giveUp();
  MenSerPro(session, TestPorts(form, window));
  ASSERT_EQ(form.shown.size(), 1U);
  EXPECT_EQ(describe(form.shown[0]),
            "VOR_KEL: Propagazione Errori\n"
            "rows 10, cols 44, fields 6, frames 3, texts 6\n"
            "frame 1 1 10 44 3\n"
            "frame 3 1 6 22 3\n"
            "frame 3 22 6 44 3\n"
            "text 1 22 1 [Funzione]\n"
            "text 2 22 1 [ y = A sin(c) ]\n"
            "text 4 11 1 [Valore ]\n"
            "text 5 11 1 [Parametro]\n"
            "text 4 33 1 [ Errore ]\n"
            "text 5 33 1 [\xE5>0, Err.Max.<0 ]\n"
            "field 7 5 -18 [2] #Number label 7 2 3 [x]\n"
            "field 8 5 -18 [0] #Number label 8 2 3 [c]\n"
            "field 9 5 -18 [0] #Number label 9 2 3 [A]\n"
            "field 7 27 -18 [-.25] #Number label 7 24 3 [\xEBx]\n"
            "field 8 27 -18 [0] #Number label 8 24 3 [\xEB"
            "c]\n"
            "field 9 27 -18 [0] #Number label 9 24 3 [\xEB"
            "A]\n");
}

TEST_F(InitialParametersTest, TheSigmaIsCode229AndTheDeltaCode235) {
  take(1, 1);
  form.giveUp();
  MenSerPro(session, TestPorts(form, window));
  EXPECT_EQ(code(form.shown[0].InpTexts[6].bytes().front()), 229);
  EXPECT_EQ(code(form.shown[0].InpLabels[3].bytes().front()), 235);
}

TEST_F(InitialParametersTest, LongNamesMoveTheFieldsToTheRight) {
  session.loaded.catalogue.file.entries.push_back(
      compiledEntry("a,tau0", "a*x+tau0", "una funzione del file, con un testo lungo, 50!"));
  loadFunction(session, 1);
  take(6, 1);
  form.giveUp();
  MenAdaPar(session, TestPorts(form, window));
  // The text has 4 + 46 characters: 26 columns a half.
  EXPECT_EQ(describe(form.shown[0]),
            "VOR_KEL: Parametri Iniziali\n"
            "rows 9, cols 52, fields 4, frames 3, texts 6\n"
            "frame 1 1 9 52 3\n"
            "frame 3 1 6 26 3\n"
            "frame 3 26 6 52 3\n"
            "text 1 26 1 [Funzione]\n"
            "text 2 26 1 [ y = una funzione del file, con un testo lungo, 50! ]\n"
            "text 4 13 1 [Valore]\n"
            "text 5 13 1 [ Iniziale ]\n"
            "text 4 39 1 [  Variazione  ]\n"
            "text 5 39 1 [0 Cost. 1 Var.]\n"
            "field 7 8 -19 [0] #Number label 7 2 6 [a]\n"
            "field 8 8 -19 [0] #Number label 8 2 6 [tau0]\n"
            "field 7 34 -19 [0] #Number label 7 28 6 [\xEB"
            "a]\n"
            "field 8 34 -19 [0] #Number label 8 28 6 [\xEBtau0]\n");
}

TEST_F(InitialParametersTest, TheTextOfTheFunctionWidensTheForm) {
  EXPECT_EQ(columns(9), 44);
  EXPECT_EQ(columns(43), 44);  // 22.5 goes to the even 22
  EXPECT_EQ(columns(45), 48);  // 23.5 goes to 24
  EXPECT_EQ(columns(60), 64);
}

TEST_F(InitialParametersTest, ValuesAreShownInTheirShortForm) {
  take(3, 1);
  session.analysis.par.ParValues[1] = 1.0 / 3.0;
  session.analysis.par.ParValues[2] = 3;
  session.analysis.par.ParDeltas[3] = 1E-20;
  form.giveUp();
  MenAdaPar(session, TestPorts(form, window));
  EXPECT_EQ(form.shown[0].InpValues[1].bytes(), "0.333333E+00");
  EXPECT_EQ(form.shown[0].InpValues[2].bytes(), "3");
  EXPECT_EQ(form.shown[0].InpValues[6].bytes(), "1E-20");
}

TEST_F(InitialParametersTest, EnteredValuesSortTheParameters) {
  take(3, 1);
  enter({"0", "7", "-250", "1", "0", ".5"});
  const ParameterSet& par = session.analysis.par;
  EXPECT_EQ(par.ParValues.upper(), 3);
  EXPECT_EQ(par.ParDeltas.upper(), 3);
  EXPECT_THAT(used(par.ParValues), testing::ElementsAre(0, 7, -250));
  EXPECT_THAT(used(par.ParDeltas), testing::ElementsAre(1, 0, 0.5));
  EXPECT_EQ(par.FreeCount, 2);
  EXPECT_THAT(used(par.FreeIndex), testing::ElementsAre(1, 3, 2));
  EXPECT_EQ(par.FreeValues[1], 0);
  EXPECT_EQ(par.FreeValues[2], -250);
  EXPECT_EQ(par.FreeSteps[1], 0.01);
  EXPECT_EQ(par.FreeSteps[2], 2.5);
  EXPECT_EQ(par.FreeIndex.upper(), 4);
  EXPECT_EQ(par.FreeValues.upper(), 4);
  EXPECT_EQ(par.FreeSteps.upper(), 4);
  EXPECT_EQ(session.analysis.ParametersSet, kTrue);
  EXPECT_EQ(session.analysis.ParVar, kTrue);
  EXPECT_EQ(session.ErrFlag, 0);
}

TEST_F(InitialParametersTest, ConstantParametersFillTheTableFromItsEnd) {
  take(3, 1);
  enter({"1", "2", "3", "0", "0", "0"});
  EXPECT_EQ(session.analysis.par.FreeCount, 0);
  EXPECT_THAT(used(session.analysis.par.FreeIndex), testing::ElementsAre(3, 2, 1));
  EXPECT_EQ(session.analysis.ParVar, kFalse);
  EXPECT_EQ(session.analysis.ParametersSet, kTrue);
}

TEST_F(InitialParametersTest, AnyNumberOtherThanZeroMakesAParameterFree) {
  take(2, 1);
  enter({"1", "2", "-3", "1E-300"});
  EXPECT_EQ(session.analysis.par.FreeCount, 2);
  EXPECT_EQ(session.analysis.ParVar, kTrue);
}

TEST_F(InitialParametersTest, ASecondEntryStartsTheTablesAnew) {
  take(2, 1);
  enter({"1", "2", "1", "1"});
  enter({"1", "2", "0", "1"});
  EXPECT_EQ(session.analysis.par.FreeCount, 1);
  EXPECT_THAT(used(session.analysis.par.FreeIndex), testing::ElementsAre(2, 1));
  EXPECT_EQ(session.analysis.par.FreeValues[1], 2);
  EXPECT_EQ(session.analysis.par.FreeValues[2], 0);
}

TEST_F(InitialParametersTest, ExponentsAreReadFromTheFields) {
  take(2, 1);
  enter({"0.333333E+00", "-1D3", "1", "1"});
  EXPECT_EQ(session.analysis.par.ParValues[1], 0.333333);
  EXPECT_EQ(session.analysis.par.ParValues[2], -1000);
}

TEST_F(InitialParametersTest, AFunctionWithoutParametersHasNoFields) {
  session.loaded.catalogue.file.entries.push_back(compiledEntry("", "2*x", "doppio"));
  loadFunction(session, 1);
  take(6, 1);
  enter({});
  EXPECT_EQ(form.shown[0].InpFieldCount, 0);
  EXPECT_EQ(form.shown[0].InpRows, 7);
  EXPECT_EQ(session.analysis.par.FreeCount, 0);
  EXPECT_EQ(session.analysis.ParVar, kFalse);
  EXPECT_EQ(session.analysis.ParametersSet, kTrue);
}

TEST_F(InitialParametersTest, AfterTheEntryTheMenusFollowAndWhoeverHoldsTheMainWindowKeepsIt) {
  take(2, 1);
  window.shut(Form::kEditor);
  window.calls.clear();
  session.input.InpFieldCount = 4;
  session.input.InpValues.dim(4);
  for (int i = 1; i <= 4; ++i) session.input.InpValues[i] = "1";
  StoreParameters(session, window);
  EXPECT_THAT(window.calls, testing::ElementsAre("refresh"));
  EXPECT_TRUE(window.menuEnabled[Control::MenAdaAda]);
  EXPECT_TRUE(window.menuEnabled[Control::MenAdaPar]);
  EXPECT_EQ(window.panels[5], "Par.Var.: SI");
  EXPECT_EQ(session.analysis.par.FreeCount, 2);
}

TEST_F(InitialParametersTest, GivingUpLeavesEverythingAsItWas) {
  take(2, 1);
  enter({"1", "2", "1", "0"});
  const ParameterSet before = session.analysis.par;
  form.giveUp();
  MenAdaPar(session, TestPorts(form, window));
  EXPECT_EQ(session.ErrFlag, kTrue);
  EXPECT_EQ(session.analysis.par.ParValues, before.ParValues);
  EXPECT_EQ(session.analysis.par.ParDeltas, before.ParDeltas);
  EXPECT_EQ(session.analysis.par.FreeIndex, before.FreeIndex);
  EXPECT_EQ(session.analysis.par.FreeCount, 1);
  EXPECT_EQ(session.analysis.ParVar, kTrue);
}

TEST_F(InitialParametersTest, TheNextShowingStartsFromTheStoredValues) {
  take(2, 1);
  enter({"1", "2", "1", "0"});
  form.giveUp();
  MenAdaPar(session, TestPorts(form, window));
  const InputTables& second = form.shown[1];
  EXPECT_EQ(second.InpValues[1].bytes(), "1");
  EXPECT_EQ(second.InpValues[2].bytes(), "2");
  EXPECT_EQ(second.InpValues[3].bytes(), "1");
  EXPECT_EQ(second.InpValues[4].bytes(), "0");
}

TEST_F(InitialParametersTest, AfterAFitTheRightColumnShowsTheErrors) {
  take(2, 1);
  enter({"1", "2", "1", "0"});
  session.analysis.par.ParDeltas[1] = 0.125;  // as the fit leaves it
  form.execute({"1", "2", ".125", "0"});
  MenAdaPar(session, TestPorts(form, window));
  EXPECT_EQ(form.shown[1].InpValues[3].bytes(), ".125");
  EXPECT_EQ(session.analysis.par.FreeCount, 1);
}

TEST_F(InitialParametersTest, ALoadedModelGetsTheValues) {
  session.loaded.catalogue.file.entries.push_back(compiledEntry("p,q", "p*x+q", "retta"));
  loadFunction(session, 1);
  take(6, 7);
  enter({"3", "4", "5", "1", "1", "1"});
  EXPECT_EQ(session.analysis.model.loaded().nPar, 2);
  NoListener nobody;
  EXPECT_EQ(session.analysis.model.at(0, session.analysis.par.ParValues, nobody),
            Evaluation{5 * elementary::exp(4)});
}

TEST_F(InitialParametersTest, APropagationKeepsTheIndependentVariableAtIndexZeroAndNothingFree) {
  take(2, 1);
  ScriptedDialogs dialogs;
  RecordingOutput output;
  MemoryFiles files;
  StillClock clock;
  CyclingRandom random({0.25F, 0.75F});
  form.execute({"10", "1", "2", ".5", "0", "-.25"});
  MenSerPro(session, TestPorts(form, dialogs, window, output, files, clock, random));
  EXPECT_EQ(output.requests.size(), 1U) << "the screen of the propagation";
  EXPECT_EQ(session.analysis.PropagationMode, kTrue);
  EXPECT_EQ(session.analysis.par.ParValues.upper(), 2);
  EXPECT_EQ(session.analysis.par.ParValues[0], 10);
  EXPECT_EQ(session.analysis.par.ParDeltas[0], 0.5);
  EXPECT_THAT(used(session.analysis.par.ParValues), testing::ElementsAre(1, 2));
  EXPECT_THAT(used(session.analysis.par.ParDeltas), testing::ElementsAre(0, -0.25));
  EXPECT_EQ(session.analysis.par.FreeCount, 1);
  EXPECT_THAT(used(session.analysis.par.FreeIndex), testing::ElementsAre(2, 1));
  EXPECT_EQ(session.analysis.ParVar, kFalse);
  EXPECT_EQ(session.analysis.ParametersSet, kTrue);
  EXPECT_EQ(session.ErrFlag, 0);
}

TEST_F(InitialParametersTest, AnEntryForAFitEndsThePropagationMode) {
  take(2, 1);
  form.giveUp();
  MenSerPro(session, TestPorts(form, window));
  EXPECT_EQ(session.ErrFlag, 0);
  enter({"1", "2", "1", "1"});
  EXPECT_EQ(session.analysis.PropagationMode, kFalse);
  EXPECT_EQ(session.analysis.ParVar, kTrue);
}

TEST_F(InitialParametersTest, WithoutAFunctionThePropagationAsksNothing) {
  session.ErrFlag = kTrue;
  MenSerPro(session, TestPorts(form, window));
  EXPECT_TRUE(form.shown.empty());
  EXPECT_EQ(session.analysis.PropagationMode, kFalse);
  EXPECT_EQ(session.ErrFlag, 0);
}

}  // namespace
}  // namespace vk
