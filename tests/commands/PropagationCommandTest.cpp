#include "commands/PropagationCommand.h"

#include <cmath>

#include "base/Text.h"
#include "commands/ParameterCommands.h"
#include "doubles/TestPorts.h"
#include "doubles/Tolerances.h"
#include "platform/system/SystemRandom.h"
#include "tests/commands/PropagationHelp.h"

namespace vk {
namespace {

using testing::ElementsAre;

/// y = c with c = 3 and a maximum error of 0.3; the samples are 3.15 and 2.85 in turn.
class FlatFunction : public PropagationTest {
 protected:
  FlatFunction() {
    choose(session, 1, 1);
    set(0, 2, 0);
    set(1, 3, -0.3);
  }
  CyclingRandom random{{0.5F, 0.25F, 0.5F, 0.75F}};
};

// ---- The screen -------------------------------------------------------------------------------------------

TEST_F(FlatFunction, OpensAWindowWithFourButtons) {
  propagate(random);
  ASSERT_EQ(output.requests.size(), 1U);
  const OutputRequest& request = output.requests[0];
  EXPECT_EQ(request.owner, Form::kMain);
  EXPECT_EQ(request.rows, 1 + 11);
  EXPECT_EQ(request.cols, 2 * 1 + 44);
  EXPECT_EQ(request.caption, "VOR_KEL: Propagazione Errori");
  EXPECT_EQ(request.text, "");
  EXPECT_EQ(request.captions, (std::vector<WindowText>{"&Continua", "&Stampa", "Co&pia", "Salva &File"}));
}

TEST_F(FlatFunction, ShowsTheWholeScreen) {
  propagate(random);
  EXPECT_EQ(screen(), R"(┌────────────────────────────────────────────┐
│                   y = c                    │
├────────────────────────────────────────────┤
│ x = 0.200000E+01   δx = 0.000E+00 σ        │
│ c = 0.300000E+01   δc = 0.300E+00 Err. Max.│
├─Espressioni Analitiche─────────────────────┤
│ y = 0.300000E+01   δy = 0.300E+00 Err. Max.│
│                    δy'= 0.173E+00 σ(y)     │
├─Simulazione di Monte Carlo─────────────────┤
│<y>= 0.300000E+01   δy = 0.150E+00 σ(y)     │
│ N =    10000       δy'= 0.150E-02 σ(<y>)   │
└────────────────────────────────────────────┘
)");
}

TEST_F(PropagationTest, AlignsLongNamesAndShortensALongFunction) {
  load("tau,k", "k-x/tau", "una funzione di nome lungo, piu` della riga!");
  set(0, 0, 0.5);
  set(1, 2, -1);
  set(2, 3, 0);
  // The deviates of each pair are 0.5 * sqrt(8 ln 4) and 0, the uniform errors 0.
  CyclingRandom random({0.5F, 0.75F, 0.5F, 0.5F, 0.5F, 0.5F});
  propagate(random);
  EXPECT_EQ(screen(), R"(┌────────────────────────────────────────────────┐
│ y = una funzione di n...ngo, piu` della riga!  │
├────────────────────────────────────────────────┤
│   x = 0.000000E+00   δx = 0.500E+00 σ          │
│ tau = 0.200000E+01 δtau = 0.100E+01 Err. Max.  │
│   k = 0.300000E+01   δk = 0.000E+00 σ          │
├─Espressioni Analitiche─────────────────────────┤
│ y =   0.300000E+01   δy = 0.750E+00 Err. Max.  │
│                      δy'= 0.250E+00 σ(y)       │
├─Simulazione di Monte Carlo─────────────────────┤
│  <y>= 0.279186E+01   δy = 0.208E+00 σ(y)       │
│   N =    10000       δy'= 0.208E-02 σ(<y>)     │
└────────────────────────────────────────────────┘
)");
}

TEST_F(FlatFunction, AFunctionOf45CharactersIsPrintedWholeAndOneOf46Shortened) {
  const std::string text = "y = 5678901234567890123456789012345678901234A";
  ASSERT_EQ(text.size(), 45U);
  session.analysis.par.ParNameWidth = 3;
  session.analysis.fun.FunctionText = " " + text + " ";
  propagate(random);
  EXPECT_EQ(mid(output.grid().rowText(2), 3, 45), text);
  session.analysis.fun.FunctionText = " " + text + "B ";
  propagate(random);
  EXPECT_EQ(mid(output.grid().rowText(2), 3, 45), "y = 56789012345678901...6789012345678901234AB");
}

TEST_F(FlatFunction, DrawsTheFramesOfEachPartAsItBegins) {
  propagate(random);
  EXPECT_THAT(output.grid().frames(), ElementsAre(GridFrame{1, 1, 12, 46, 3}, GridFrame{1, 1, 3, 46, 3},
                                                  GridFrame{1, 1, 6, 46, 3}, GridFrame{1, 1, 9, 46, 3}));
}

TEST_F(FlatFunction, SigmaIsCode229AndDeltaCode235) {
  propagate(random);
  EXPECT_EQ(code(output.grid().at(4, 37)), 229);
  EXPECT_EQ(code(output.grid().at(4, 22)), 235);
  EXPECT_EQ(mid(output.grid().rowText(4), 36, 9), " \xE5       ");
  EXPECT_EQ(mid(output.grid().rowText(5), 36, 10), " Err. Max.");
}

// ---- The run ----------------------------------------------------------------------------------------------

TEST_F(FlatFunction, SeedsTheGeneratorOnceFromTheClock) {
  propagate(random);
  EXPECT_THAT(random.seeds, ElementsAre(4711.5F));
}

TEST_F(FlatFunction, ShowsTheSamplesAHundredTimesWhileTheyAreDrawn) {
  propagate(random);
  ASSERT_EQ(output.refreshed.size(), 100U);
  EXPECT_EQ(mid(output.refreshed[0].rowText(11), 2, 13), " N =      100");
  EXPECT_EQ(mid(output.refreshed[41].rowText(11), 2, 13), " N =     4200");
  EXPECT_EQ(mid(output.refreshed[99].rowText(11), 2, 13), " N =    10000");
}

TEST_F(FlatFunction, LeavesTheHistogramInTheSession) {
  propagate(random);
  const MonteCarloResult& histogram = session.analysis.monteCarlo;
  EXPECT_EQ(histogram.McBinCount, 60);
  EXPECT_EQ(histogram.McSamples, 10000);
  EXPECT_NEAR(histogram.McBinWidth, 0.3 / std::sqrt(3) / 10, kManyRoundings);
  EXPECT_NEAR(histogram.McBinCentre[1], 3 - 0.3 * std::sqrt(3), kManyRoundings);
  double hits = 0;
  for (const double bin : histogram.McBinHits.span(1, 60)) hits += bin;
  EXPECT_EQ(hits, 10000);
}

TEST_F(FlatFunction, ASecondRunCountsAnew) {
  propagate(random);
  session.analysis.monteCarlo.McBinCount = 7;  // as a save leaves it
  propagate(random);
  EXPECT_EQ(session.analysis.monteCarlo.McBinCount, 60);
  EXPECT_EQ(session.analysis.monteCarlo.McSamples, 10000);
  double hits = 0;
  for (const double bin : session.analysis.monteCarlo.McBinHits.span(1, 60)) hits += bin;
  EXPECT_EQ(hits, 10000);
}

TEST_F(FlatFunction, GivesBackWhatItHasShown) {
  const PropagationResult result = propagate(random);
  EXPECT_EQ(result.end, PropagationEnd::kCompleted);
  EXPECT_EQ(result.analytic.F0, 3);
  EXPECT_NEAR(result.analytic.ErrorMax, 0.3, kManyRoundings);
  EXPECT_EQ(result.samples.count, 10000);
  EXPECT_NEAR(result.samples.mean, 3, kManyRoundings);
  EXPECT_NEAR(result.samples.spread, 0.15, kIterated);
  EXPECT_NEAR(result.samples.meanError, 0.0015, 1E-11);
}

TEST_F(FlatFunction, TheMainWindowIsShutMeanwhileAndUsableAfterwards) {
  bool shut = false;
  class Watching : public CyclingRandom {
   public:
    Watching(const RecordingMainWindow& window, bool& shut)
        : CyclingRandom({0.25F}), window_(window), shut_(shut) {}
    float next() override {
      shut_ = !window_.enabled;
      return CyclingRandom::next();
    }

   private:
    const RecordingMainWindow& window_;
    bool& shut_;
  } watching(window, shut);
  propagate(watching);
  EXPECT_TRUE(shut);
  EXPECT_TRUE(window.enabled);
  EXPECT_TRUE(output.isOpen());
}

TEST_F(FlatFunction, PutsTheValuesBack) {
  const Array<double> before = session.analysis.par.ParValues;
  propagate(random);
  EXPECT_EQ(session.analysis.par.ParValues, before);
  EXPECT_EQ(session.ErrFlag, 0);
}

// ---- Failures ---------------------------------------------------------------------------------------------

constexpr const char* kDerivatives = "Errori nel Calcolo delle Derivate Parziali";
constexpr const char* kSimulation = "Errori nella Simulazione di Monte Carlo";

class FailingPropagation : public PropagationTest {
 protected:
  /// Runs a propagation that ends with this box.
  void expectFailure(const std::string& text, PropagationEnd end) {
    const Array<double> before = session.analysis.par.ParValues;
    dialogs.expectBox();
    const PropagationResult result = propagate(random);
    ASSERT_EQ(dialogs.boxes.size(), 1U);
    EXPECT_EQ(dialogs.boxes[0], (ScriptedDialogs::Box{"VOR_KEL", text}));
    EXPECT_EQ(result.end, end);
    EXPECT_FALSE(output.isOpen());
    EXPECT_EQ(session.analysis.par.ParValues, before);
    EXPECT_EQ(session.ErrFlag, 0);
    EXPECT_TRUE(window.enabled);
  }
  CyclingRandom random{{0.25F, 0.75F}};
};

TEST_F(FailingPropagation, AFailureOfTheLastEvaluationIsTold) {
  load("a", "SQR(a)");
  set(0, 1, 0);
  set(1, 0, -1);
  expectFailure(kDerivatives, PropagationEnd::kDerivativesFailed);
  EXPECT_EQ(random.drawn, 0);
  EXPECT_EQ(session.analysis.monteCarlo.McBinCount, 0);
}

TEST_F(FailingPropagation, QUIRK_AFailureOfAnEarlierEvaluationIsNotNoticed) {
  load("a,b", "SQR(a)+b");
  set(1, 0, 0);
  set(2, 5, -1);
  EXPECT_EQ(propagate(random).end, PropagationEnd::kCompleted);
}

TEST_F(FailingPropagation, ASumThatOverflowsIsTold) {
  load("a", "1E200*a");
  set(1, 1, 1E200);
  expectFailure(kDerivatives, PropagationEnd::kDerivativesFailed);
}

TEST_F(FailingPropagation, WithoutErrorsTheFunctionDoesNotDependOnTheVariables) {
  choose(session, 2, 1);
  set(0, 2, 0);
  set(1, 3, 0);
  set(2, 4, 0);
  expectFailure(std::string(kSimulation) + "\nla funzione NON dipende dalle variabili",
                PropagationEnd::kNoDependence);
  EXPECT_EQ(session.analysis.monteCarlo.McBinWidth, 0);
  // One number for each variable of each sample, even where there is no error: 200 for the range, then one.
  EXPECT_EQ(random.drawn, 3 * 201);
}

TEST_F(FailingPropagation, ASampleThatCannotBeEvaluatedEndsTheSimulation) {
  load("a", "LOG(a)");
  set(1, 0.4, -1);
  expectFailure(kSimulation, PropagationEnd::kSimulationFailed);
}

TEST_F(FailingPropagation, ASampleFarOutsideOverflowsTheNumberOfItsBin) {
  // The slope at 0 is a millionth: bins of about 1E-7, samples of up to 1.
  load("a", "a^3");
  set(1, 0, -1);
  expectFailure(kSimulation, PropagationEnd::kSimulationFailed);
  EXPECT_GT(session.analysis.monteCarlo.McBinWidth, 0);
}

TEST_F(FailingPropagation, ASumOfSamplesThatOverflowsEndsTheSimulation) {
  choose(session, 1, 1);
  set(1, 1E160, -1E150);
  session.analysis.par.ParDeltas[1] = -1E150;
  expectFailure(kSimulation, PropagationEnd::kSimulationFailed);
}

TEST_F(FailingPropagation, AFunctionFlatAtTheBaseGetsItsRangeFromSamples) {
  load("a", "a*a");
  set(1, 0, -1);
  CyclingRandom wide({0.5F, 0.25F, 0.5F, 1.0F - 1.0F / 64});
  EXPECT_EQ(propagate(wide).end, PropagationEnd::kCompleted);
  const double highest = std::pow(2 * (1 - 1.0 / 64) - 1, 2);
  EXPECT_DOUBLE_EQ(session.analysis.monteCarlo.McBinWidth, highest / 60);
  EXPECT_EQ(session.analysis.monteCarlo.McBinCentre[1], 0);
  EXPECT_EQ(wide.drawn, 2 * 10200);
}

// ---- The command ------------------------------------------------------------------------------------------

class PropagationCommand : public PropagationTest {
 protected:
  void run() { MenSerPro(session, TestPorts(form, dialogs, window, output, files, clock, random)); }
  ScriptedInputForm form;
  CyclingRandom random{{0.25F, 0.75F}};
};

TEST_F(PropagationCommand, PropagatesWhatWasEntered) {
  choose(session, 2, 1);
  form.execute({"10", "2", "1", "0", "-.5", "0"});
  run();
  EXPECT_EQ(session.ErrFlag, 0);
  EXPECT_TRUE(window.enabled);
  EXPECT_TRUE(output.isOpen());
  EXPECT_EQ(output.request().captions.back(), "Salva &File");
  EXPECT_EQ(mid(output.grid().rowText(8), 3, 16), "y = 0.210000E+02");
  EXPECT_EQ(mid(output.grid().rowText(8), 22, 24), "\xEBy = 0.500E+01 Err. Max.");
}

TEST_F(PropagationCommand, AfterAFailureTheFlagIsClearToo) {
  choose(session, 2, 1);
  form.execute({"10", "2", "1", "0", "0", "0"});
  dialogs.expectBox();
  run();
  EXPECT_EQ(session.ErrFlag, 0);
  EXPECT_FALSE(output.isOpen());
}

TEST_F(PropagationCommand, GivingUpShowsNothing) {
  choose(session, 2, 1);
  form.giveUp();
  run();
  EXPECT_TRUE(output.requests.empty());
  EXPECT_EQ(session.ErrFlag, 0);
}

}  // namespace
}  // namespace vk
