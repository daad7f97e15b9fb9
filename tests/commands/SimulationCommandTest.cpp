#include "commands/SimulationCommand.h"

#include <cmath>

#include "commands/ExhaustedBox.h"
#include "commands/ParameterCommands.h"
#include "doubles/ErrorOf.h"
#include "doubles/TestPorts.h"
#include "doubles/Tolerances.h"
#include "platform/system/SystemRandom.h"
#include "tests/commands/FormText.h"
#include "tests/commands/PropagationHelp.h"

namespace vk {
namespace {

using testing::ElementsAre;
using Fields = std::vector<std::string>;

/// The first deviate of the numbers 0.5, 0.75; the second one is 0.
const double kDeviate = 0.5 * std::sqrt(8 * std::log(4.0));

/// y = bx+c with b = 2 and c = 1, both free.
class SimulationTest : public PropagationTest {
 protected:
  SimulationTest() {
    choose(session, 2, 1);
    set(1, 2, 1);
    set(2, 1, 1);
    classifyParameters(session.analysis.par);
    markParametersSet(session);
  }

  /// The command up to its fit, which the test does.
  void run() {
    CyclingRandom none({0.5F});
    Random& random = random_ == nullptr ? none : *random_;
    ExhaustedBox listener(dialogs);
    const auto fields = askSimulation(session, form_);
    if (fields && SimulateData(session, *fields, dialogs, random, listener)) fit(), ++fits;
  }
  void simulate(const Fields& fields, Random& random) {
    form_.execute(fields);
    random_ = &random;
    run();
  }
  void simulate(const Fields& fields) {
    CyclingRandom pairs({0.5F, 0.75F});
    simulate(fields, pairs);
  }
  /// The report of unreasonable settings, answered by a button.
  std::string reportOf(const Fields& fields, int button = 1) {
    dialogs.press(button);
    simulate(fields);
    return std::string(dialogs.messages.back().text.bytes());
  }
  static Fields values(const InputTables& form) {
    Fields texts;
    for (const Cp437Text& value : form.InpValues.span(1, 7)) texts.emplace_back(value.bytes());
    return texts;
  }
  std::vector<double> column(const Array<double>& values) const {
    const auto part = values.span(1, session.loaded.data.NumPnt);
    return {part.begin(), part.end()};
  }

  /// Stands for the fit.
  std::function<void()> fit = [] {};
  int fits = 0;
  Random* random_ = nullptr;
  ScriptedInputForm form_;
};

constexpr const char* kHeader = "Immissione Dati NON Ragionevole! Segue Elenco e Correzione Proposta.\r";

// ---- The form ---------------------------------------------------------------------------------------------

TEST_F(SimulationTest, TheForm) {
  form_.giveUp();
  run();
  ASSERT_EQ(form_.shown.size(), 1U);
  EXPECT_EQ(form_.callers[0], Form::kMain);
  EXPECT_EQ(describe(form_.shown[0]),
            "VOR_KEL: Simulazione Dati\n"
            "rows 13, cols 50, fields 7, frames 3, texts 2\n"
            "frame 3 1 13 50 3\n"
            "frame 3 30 13 50 3\n"
            "frame 1 1 13 50 3\n"
            "text 1 25 1 [Funzione]\n"
            "text 2 25 1 [y = bx+c]\n"
            "field 4 32 -18 [0] #Number label 4 3 26 [x Minimo                  ]\n"
            "field 5 32 -18 [10] #Number label 5 3 26 [x Massimo                 ]\n"
            "field 6 32 -18 [11] #Number label 6 3 26 [Numero Punti              ]\n"
            "field 8 32 -18 [1] #Number label 8 3 26 [Incertezza di y           ]\n"
            "field 9 32 -18 [0] #Number label 9 3 26 [Inc. y (0=Perc., <>0=Ass.)]\n"
            "field 11 32 -18 [0] #Number label 11 3 26 [Incertezza di x           ]\n"
            "field 12 32 -18 [0] #Number label 12 3 26 [Inc. x (0=Perc., <>0=Ass.)]\n");
}

TEST_F(SimulationTest, TheNextFormShowsTheSettingsUsedLast) {
  simulate({"-.5", "1E20", "7", "-2.25", "1", "-.125", "-3"});
  form_.giveUp();
  run();
  EXPECT_THAT(values(form_.shown[1]), ElementsAre("-.5", "1E+20", "7", "2.25", "1", ".125", "-3"));
}

TEST_F(SimulationTest, AnotherFunctionStartsFromTheFirstValuesAgain) {
  simulate({"1", "2", "3", "4", "5", "6", "7"});
  choose(session, 1, 1);
  form_.giveUp();
  run();
  EXPECT_THAT(values(form_.shown[1]), ElementsAre("0", "10", "11", "1", "0", "0", "0"));
}

TEST_F(SimulationTest, GivingUpLeavesTheSettings) {
  simulate({"1", "2", "3", "4", "5", "6", "7"});
  form_.giveUp();
  run();
  EXPECT_EQ(session.ErrFlag, kTrue);
  EXPECT_EQ(session.analysis.sim.SimXMin, 1);
  EXPECT_EQ(session.analysis.sim.SimErrXAbs, 7);
  EXPECT_EQ(session.loaded.data.NumPnt, 3);
  EXPECT_EQ(fits, 1);
}

// ---- The settings -----------------------------------------------------------------------------------------

TEST_F(SimulationTest, TheCountIsRoundedWithoutItsSign) {
  const auto count = [&](const std::string& entered) {
    simulate({"0", "10", entered, "1", "1", "0", "0"});
    return int{session.loaded.data.NumPnt};
  };
  EXPECT_EQ(count("-20"), 20);
  EXPECT_EQ(count("3.6"), 4);
  EXPECT_EQ(count("4.5"), 4);
  set(2, 1, 0);
  classifyParameters(session.analysis.par);
  markParametersSet(session);
  EXPECT_EQ(count("2.5"), 2);
}

TEST_F(SimulationTest, ErrorsLoseTheirSignAndSwitchesAreRounded) {
  simulate({"0", "1", "5", "-.5", "1.5", "-.25", "-2.5"});
  EXPECT_EQ(session.analysis.sim.SimErrY, 0.5);
  EXPECT_EQ(session.analysis.sim.SimErrYAbs, 2);
  EXPECT_EQ(session.analysis.sim.SimErrX, 0.25);
  EXPECT_EQ(session.analysis.sim.SimErrXAbs, -2);
}

TEST_F(SimulationTest, ANumberBeyondItsTypeChangesNothing) {
  const DataSet before = session.loaded.data;
  const Array<double> starts = session.analysis.par.FreeValues;
  for (const Fields& fields :
       {Fields{"0", "10", "32767.5", "1", "1", "0", "0"}, Fields{"0", "10", "5", "1", "40000", "0", "0"},
        Fields{"0", "10", "5", "1", "1", "1", "-40000"}, Fields{"-1E308", "1E308", "5", "1", "1", "0", "0"},
        Fields{"0", "10", "5", "1E308", "0", "0", "0"}}) {
    dialogs.expectBox();
    simulate(fields);
    EXPECT_EQ(dialogs.boxes.back(), (ScriptedDialogs::Box{"VOR_KEL", "Overflow"}));
  }
  EXPECT_EQ(session.loaded.data.Xpnt, before.Xpnt);
  EXPECT_EQ(session.loaded.DataFile, "Nessuno");
  EXPECT_EQ(session.loaded.DataDefined, kFalse);
  EXPECT_EQ(session.analysis.SimFirstTime, kTrue);
  EXPECT_EQ(session.analysis.sim.SimPoints, 0);
  EXPECT_EQ(session.analysis.par.FreeValues, starts);
  EXPECT_EQ(fits, 0);
}

TEST_F(SimulationTest, TheLargestNumberOfPointsIsMade) {
  simulate({"0", "32766", "32767", "1", "1", "0", "0"});
  EXPECT_EQ(session.loaded.data.NumPnt, 32767);
  EXPECT_EQ(session.loaded.data.Xpnt[32767], 32766);
}

// ---- What is not reasonable -------------------------------------------------------------------------------

TEST_F(SimulationTest, QUIRK_TooFewPointsAreToldWithTheCorrectedCount) {
  EXPECT_EQ(reportOf({"0", "10", "1", "1", "1", "0", "0"}),
            std::string(kHeader) +
                "*** Numero di Punti (3) Non Maggiore del Numero di Parametri (2)\r"
                "___ Posto Numero di Punti = Numero di Parametri +1\r");
  EXPECT_EQ(session.loaded.data.NumPnt, 3);
}

TEST_F(SimulationTest, AsManyPointsAsParametersAreTooFew) {
  EXPECT_THAT(reportOf({"0", "10", "2", "1", "1", "0", "0"}), testing::HasSubstr("(3)"));
}

TEST_F(SimulationTest, LimitsInTheWrongOrderAreExchanged) {
  EXPECT_EQ(reportOf({"10", "0", "11", "1", "1", "0", "0"}),
            std::string(kHeader) + "*** Xmin > Xmax: Scambiati Xmin e Xmax\r");
  EXPECT_EQ(session.analysis.sim.SimXMin, 0);
  EXPECT_EQ(session.analysis.sim.SimXMax, 10);
  EXPECT_EQ(session.loaded.data.Xpnt[1], 0);
}

TEST_F(SimulationTest, EqualLimitsAreMovedApart) {
  EXPECT_EQ(reportOf({"4", "4", "11", "1", "1", "0", "0"}),
            std::string(kHeader) + "*** Xmin = Xmax: Posto Xmax = Xmin +1\r");
  EXPECT_EQ(session.loaded.data.Xpnt[11], 5);
}

TEST_F(SimulationTest, AnErrorOfZeroBecomesOne) {
  EXPECT_EQ(reportOf({"0", "10", "11", "0", "1", "0", "0"}),
            std::string(kHeader) + "*** Incertezza di y = 0: Posto Incertezza di y = 1\r");
  EXPECT_EQ(session.analysis.sim.SimErrY, 1);
  EXPECT_EQ(session.loaded.data.ErrYpnt[1], 1);
}

TEST_F(SimulationTest, AllCorrectionsComeInOneMessageInTheirOrder) {
  EXPECT_EQ(reportOf({"10", "-10", "0", "0", "0", "0", "0"}),
            std::string(kHeader) +
                "*** Numero di Punti (3) Non Maggiore del Numero di Parametri (2)\r"
                "___ Posto Numero di Punti = Numero di Parametri +1\r"
                "*** Xmin > Xmax: Scambiati Xmin e Xmax\r"
                "*** Incertezza di y = 0: Posto Incertezza di y = 1\r");
}

TEST_F(SimulationTest, TheReportIsAQuestionWithTwoButtons) {
  reportOf({"10", "0", "11", "1", "1", "0", "0"});
  const MessageRequest& message = dialogs.messages[0];
  EXPECT_EQ(message.caption, "Vor_Kel: Simulazione Dati");
  EXPECT_EQ(message.icon, 2);
  EXPECT_EQ(message.captions, (std::vector<WindowText>{"&Rinuncia", "&Continua"}));
  EXPECT_EQ(message.posX, 0);
  EXPECT_EQ(message.posY, 0);
}

TEST_F(SimulationTest, TheFirstButtonStopsBeforeTheFitWithTheDataReplaced) {
  reportOf({"10", "0", "11", "1", "1", "0", "0"}, 1);
  EXPECT_EQ(fits, 0);
  EXPECT_EQ(session.loaded.data.NumPnt, 11);
  EXPECT_EQ(session.loaded.DataFile, "SIMULA.DAT");
  EXPECT_EQ(session.loaded.DataDefined, kTrue);
}

TEST_F(SimulationTest, TheSecondButtonGoesOn) {
  reportOf({"10", "0", "11", "1", "1", "0", "0"}, 2);
  EXPECT_EQ(fits, 1);
}

TEST_F(SimulationTest, WithoutFreeParametersASinglePointHasNoStep) {
  set(1, 2, 0);
  set(2, 1, 0);
  classifyParameters(session.analysis.par);
  markParametersSet(session);
  EXPECT_EQ(errorOf([&] { simulate({"0", "10", "1", "1", "1", "0", "0"}); }), kDivisionByZero);
}

// ---- The data ---------------------------------------------------------------------------------------------

TEST_F(SimulationTest, PointsAreEquallySpacedAndScatteredByTheirErrors) {
  simulate({"1", "3", "5", ".1", "1", "0", "0"});
  EXPECT_THAT(column(session.loaded.data.Xpnt), ElementsAre(1, 1.5, 2, 2.5, 3));
  EXPECT_THAT(column(session.loaded.data.ErrYpnt), testing::Each(0.1));
  const double d = 0.1 * kDeviate;
  EXPECT_THAT(column(session.loaded.data.Ypnt),
              testing::Pointwise(testing::DoubleNear(kManyRoundings), {3 + d, 4.0, 5 + d, 6.0, 7 + d}));
}

TEST_F(SimulationTest, QUIRK_APercentageKeepsTheSignOfY) {
  simulate({"-3", "2", "6", "10", "0", "0", "0"});
  const auto dy = column(session.loaded.data.ErrYpnt);
  const double truth[] = {-5, -3, -1, 1, 3, 5};
  for (std::size_t i = 0; i < 6; ++i) EXPECT_NEAR(dy[i], truth[i] / 10, kLastBit) << i;
  EXPECT_NEAR(session.loaded.data.Ypnt[1], -5 - 0.5 * kDeviate, kManyRoundings);
}

TEST_F(SimulationTest, APercentageOfZeroIsAThousandth) {
  set(2, 0, 1);
  simulate({"-1", "1", "3", "10", "0", "0", "0"});
  EXPECT_THAT(column(session.loaded.data.ErrYpnt), ElementsAre(-0.2, 0.001, 0.2));
}

TEST_F(SimulationTest, WithoutAnErrorOfXThereIsNoColumn) {
  simulate({"0", "10", "5", "1", "1", "0", "1"});
  EXPECT_EQ(session.loaded.data.kXpntErr, kFalse);
  EXPECT_THAT(column(session.loaded.data.ErrXpnt), testing::Each(0));
}

TEST_F(SimulationTest, ErrorsOfXScatterXAndNotTheValueOfY) {
  // The pair of each point: the deviate of y, then that of x, which is 0.
  simulate({"1", "3", "3", ".1", "1", ".5", "1"});
  EXPECT_EQ(session.loaded.data.kXpntErr, kTrue);
  EXPECT_THAT(column(session.loaded.data.ErrXpnt), testing::Each(0.5));
  EXPECT_THAT(column(session.loaded.data.Xpnt), ElementsAre(1, 2, 3));
  // Here x gets the deviate and y gets 0.
  CyclingRandom crossed({0.75F, 0.5F});
  simulate({"1", "3", "3", ".1", "1", ".5", "1"}, crossed);
  const double d = 0.5 * kDeviate;
  EXPECT_THAT(column(session.loaded.data.Xpnt),
              testing::Pointwise(testing::DoubleNear(kManyRoundings), {1 + d, 2 + d, 3 + d}));
  EXPECT_THAT(column(session.loaded.data.Ypnt), ElementsAre(3, 5, 7));
}

TEST_F(SimulationTest, APercentageOfXIsTakenBeforeTheScatterAndMayBeZero) {
  CyclingRandom crossed({0.75F, 0.5F});
  simulate({"-1", "1", "3", ".1", "1", "50", "0"}, crossed);
  EXPECT_THAT(column(session.loaded.data.ErrXpnt), ElementsAre(-0.5, 0, 0.5));
  EXPECT_NEAR(session.loaded.data.Xpnt[1], -1 - 0.5 * kDeviate, kManyRoundings);
  EXPECT_EQ(session.loaded.data.Xpnt[2], 0);
}

TEST_F(SimulationTest, TheDataSetIsNewAsAfterARead) {
  session.loaded.data.allocate(300, kTrue);
  session.loaded.data.TitleX = "old";
  simulate({"0", "10", "11", "1", "1", "0", "0"});
  EXPECT_EQ(session.loaded.data.TitleX, "x");
  EXPECT_EQ(session.loaded.data.TitleY, "y");
  EXPECT_EQ(session.loaded.data.NumPnt, 11);
  EXPECT_EQ(session.loaded.data.Xpnt.upper(), 11);
  EXPECT_EQ(session.loaded.data.kXpntErr, kFalse);
}

TEST_F(SimulationTest, TheSessionHasDataOfItsOwnName) {
  simulate({"0", "10", "11", "1", "1", "0", "0"});
  EXPECT_EQ(session.loaded.DataFile, "SIMULA.DAT");
  EXPECT_EQ(session.loaded.DataDefined, kTrue);
  EXPECT_EQ(session.analysis.SimFirstTime, kFalse);
  EXPECT_TRUE(files.written.empty());
}

TEST_F(SimulationTest, FiguresDrawnBeforeAreKept) {
  session.figures.GraphText[1] = "a figure";
  simulate({"0", "10", "11", "1", "1", "0", "0"});
  EXPECT_EQ(session.figures.GraphText[1], "a figure");
}

TEST_F(SimulationTest, ValuesThatCannotBeComputedGoIntoTheDataAsTheyCome) {
  load("a", "LOG(a*x)");
  set(1, 1, 1);
  classifyParameters(session.analysis.par);
  markParametersSet(session);
  simulate({"-2", "2", "5", "1", "1", "0", "0"});
  EXPECT_NEAR(session.loaded.data.Ypnt[1], -2 + kDeviate, kManyRoundings);
  EXPECT_EQ(session.loaded.data.Ypnt[2], -1);  // the argument stays where LOG fails
  EXPECT_EQ(fits, 1);
}

// ---- The fit ----------------------------------------------------------------------------------------------

TEST_F(SimulationTest, TheFitStartsFromScatteredValues) {
  fit = [this] {
    EXPECT_DOUBLE_EQ(session.analysis.par.FreeValues[1], 2 * (1 + 0.4 * 0.5 * 0.5));
    EXPECT_DOUBLE_EQ(session.analysis.par.FreeValues[2], 1 * 0.8);
    EXPECT_EQ(session.analysis.par.FreeSteps[1], 0.02);
  };
  // Two points have a pair each, then two numbers for the parameters.
  CyclingRandom random({0.5F, 0.75F, 0.5F, 0.75F, 0.75F, 0.0F});
  simulate({"0", "10", "3", "1", "1", "0", "0"}, random);
  EXPECT_EQ(fits, 1);
  EXPECT_EQ(random.drawn, 6);
}

TEST_F(SimulationTest, AfterAnEarlierFitTheStartIsWhereThatFitEnded) {
  session.analysis.par.FreeValues[1] = 20;
  session.analysis.par.FreeSteps[1] = 0.5;
  fit = [this] {
    EXPECT_EQ(session.analysis.par.FreeValues[1], 20 * 0.8);
    EXPECT_EQ(session.analysis.par.FreeSteps[1], 0.5);
  };
  CyclingRandom random({0.5F, 0.75F, 0.5F, 0.75F, 0.0F, 0.0F});
  simulate({"0", "10", "3", "1", "1", "0", "0"}, random);
  EXPECT_EQ(fits, 1);
}

TEST_F(SimulationTest, TheGeneratorIsNotSeeded) {
  CyclingRandom random({0.5F, 0.75F});
  simulate({"0", "10", "5", "1", "1", "0", "0"}, random);
  EXPECT_TRUE(random.seeds.empty());
}

TEST_F(SimulationTest, AfterTheFitTheTrueValuesAreBack) {
  set(1, 2, 0);  // b constant
  classifyParameters(session.analysis.par);
  markParametersSet(session);
  SystemRandom random;
  form_.execute({"0", "10", "11", ".5", "1", "0", "0"});
  MenDatSim(session, TestPorts(form_, dialogs, window, output, clock, random));
  EXPECT_THAT(session.analysis.par.FreeValues[1], testing::AllOf(testing::Ne(1), testing::DoubleNear(1, 1)));
  EXPECT_EQ(session.analysis.par.ParValues[1], 2);
  EXPECT_EQ(session.analysis.par.ParValues[2], 1);
  EXPECT_GT(session.analysis.par.ParDeltas[2], 0.1);  // the error that the fit has found
  EXPECT_TRUE(output.isOpen());
  EXPECT_THAT(screen(), testing::HasSubstr("Completata"));
}

TEST_F(SimulationTest, TheWindowShowsTheDataEvenWithoutTheirFit) {
  form_.execute({"10", "0", "11", "1", "1", "0", "0"});
  dialogs.press(1);
  CyclingRandom random({0.5F, 0.75F});
  MenDatSim(session, TestPorts(form_, dialogs, window, output, random));
  EXPECT_FALSE(output.isOpen());
  EXPECT_EQ(window.panels[1], "Dati: SIMULA.DAT");
  EXPECT_TRUE(window.menuEnabled[Control::MenDatSav]);
}

}  // namespace
}  // namespace vk
