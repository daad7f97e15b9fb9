#include <cmath>

#include "analysis/FitFixture.h"
#include "commands/FitScreen.h"
#include "numeric/SampleValues.h"
#include "platform/GridOutput.h"

namespace vk {
namespace {

using testing::ElementsAre;

FitCase lineCase() {
  return {"b*x+c", "b,c"};
}

// ---- Values, errors, counts --------------------------------------------------------------------------------

TEST(FitData, LeavesValuesAndErrorsInTheParameterTables) {
  FitCase fit("b*x+c", "b,c");
  fit.data(kFive, kLineY, kTenths);
  fit.start({1, 1});
  const FitResult result = fit.fit();
  EXPECT_EQ(result.status, FitStatus::kCompleted);
  EXPECT_NEAR(fit.value(1), 1.99, 1E-6);
  EXPECT_NEAR(fit.value(2), 0.05, 1E-6);
  // By the formula of the directions; the exact errors are 0.0316 and 0.1049.
  EXPECT_NEAR(fit.error(1), 0.0316, 0.0316);
  EXPECT_NEAR(fit.error(2), 0.1049, 0.1049);
  EXPECT_EQ(fit.session.analysis.par.FreeValues[1], fit.value(1));
  EXPECT_EQ(result.M, 5);
  EXPECT_EQ(result.N, 2);
  EXPECT_EQ(result.degrees_of_freedom, 3);
  EXPECT_NEAR(result.chi_square, 10.7, 1E-6);
  EXPECT_NEAR(*result.reduced_chi_square, 10.7 / 3, 1E-6);
  // Upper tail of the chi-square distribution with 3 degrees of freedom at 10.7.
  const double tail = std::erfc(std::sqrt(5.35)) + std::sqrt(21.4 / 3.14159265358979) * std::exp(-5.35);
  EXPECT_NEAR(*result.confidence_percent, 100 * tail, 1E-5);
  EXPECT_EQ(result.reason, "");
  EXPECT_EQ(result.correlation.size(), 2);
  EXPECT_EQ(fit.session.ErrFlag, 0);
}

/// Hears of the work within iterations.
struct WorkLog : FitLog {
  int times = 0;
  void working() override { ++times; }
};

int timesHeardOf(int points) {
  FitCase fit = lineCase();
  std::vector<double> x, y, dy;
  for (int j = 0; j < points; ++j) {
    x.push_back(j);
    y.push_back(2.0 * j + 1);
    dy.push_back(1);
  }
  fit.data(x, y, dy);
  fit.start({1, 1});
  WorkLog log;
  FitData(fit.session, fit.dialogs, fit.window, fit.clock, log);
  return log.times;
}

TEST(FitData, TellsOfTheWorkWithinTheIterationsOfALargeSet) {
  EXPECT_EQ(timesHeardOf(5), 0);
  EXPECT_GT(timesHeardOf(20'000), 3);
}

TEST(FitData, KeepsConstantParametersAndTheOrderOfTheFreeOnes) {
  FitCase fit("a*x*x+b*x+c", "a,b,c");
  fit.data(kFive, {3, 8, 15, 24, 35}, kTenths);
  fit.start({0.5, 2, 1}, "b");
  const FitResult result = fit.fit();
  EXPECT_NEAR(fit.value(1), 1, 1E-6);
  EXPECT_EQ(fit.value(2), 2);
  EXPECT_EQ(fit.error(2), 0);
  EXPECT_NEAR(fit.value(3), 0, 1E-5);
  ASSERT_EQ(result.freeIndex.upper(), 2);
  EXPECT_EQ(result.freeIndex[1], 1);
  EXPECT_EQ(result.freeIndex[2], 3);
}

TEST(FitData, FitsACompositeOfTheCatalogue) {
  Session session;
  BuildCatalogue(session);
  choose(session, 2, 7);  // A exp(bx+c)
  session.loaded.data.allocate(6, kFalse);
  for (int j = 1; j <= 6; ++j) {
    session.loaded.data.Xpnt[j] = j;
    session.loaded.data.Ypnt[j] = 5 * std::exp(-0.3 * j + 0.5);
    session.loaded.data.ErrYpnt[j] = 0.1;
  }
  session.analysis.par.ParValues[1] = -0.2;
  session.analysis.par.ParValues[2] = 0.5;
  session.analysis.par.ParValues[3] = 4;
  session.analysis.par.ParDeltas[1] = 1;
  session.analysis.par.ParDeltas[3] = 1;  // c is a constant: it cannot be told apart from A
  classifyParameters(session);
  ScriptedDialogs dialogs;
  RecordingMainWindow window;
  StillClock clock;
  FitLog log;
  FitData(session, dialogs, window, clock, log);
  EXPECT_NEAR(session.analysis.par.ParValues[1], -0.3, 1E-3);
  EXPECT_EQ(session.analysis.par.ParValues[2], 0.5);
  EXPECT_NEAR(session.analysis.par.ParValues[3], 5, 1E-2);
}

TEST(FitData, WritesTheLoweredAccuraciesBack) {
  FitCase fit = lineCase();
  fit.data(kFive, kLineY, kTenths);
  fit.start({1, 1});
  fit.session.analysis.par.FreeSteps[1] = 0.5;
  fit.fit();
  EXPECT_LT(fit.session.analysis.par.FreeSteps[1], 0.5);
  EXPECT_NEAR(fit.session.analysis.par.FreeSteps[1], fit.error(1) / 10, fit.error(1) / 20);
}

TEST(FitData, StartsFromTheResultOfTheFitBefore) {
  FitCase fit = lineCase();
  fit.data(kFive, kLineY, kTenths);
  fit.start({1, 1});
  const int first = fit.fit().evaluations;
  const double slope = fit.value(1);
  EXPECT_LT(fit.fit().evaluations, first);
  EXPECT_NEAR(fit.value(1), slope, 1E-9);
}

TEST(FitData, RunsOnceWithoutErrorsOfX) {
  FitCase fit = lineCase();
  fit.data(kFive, kLineY, kTenths);
  fit.start({1, 1});
  fit.fit();
  EXPECT_THAT(fit.log.turns(), ElementsAre("start", "finish last"));
  EXPECT_EQ(fit.session.loaded.data.kXpntErr, kFalse);
}

// ---- Errors of x -------------------------------------------------------------------------------------------

TEST(FitData, FitsTwiceWithEffectiveErrors) {
  FitCase fit = lineCase();
  const Values dx{0.01, 0.02, 0.03, 0.04, 0.05};
  fit.data(kFive, kLineY, kTenths, dx);
  fit.start({1, 1});
  const FitResult result = fit.fit();
  EXPECT_THAT(fit.log.turns(), ElementsAre("start", "finish", "start", "finish last"));
  const DataSet& data = fit.session.loaded.data;
  for (int j = 1; j <= 5; ++j) {
    // The slope of the first fit is 1.99.
    EXPECT_NEAR(data.ErrEff[j], std::sqrt(0.01 + std::pow(dx[static_cast<std::size_t>(j) - 1] * 1.99, 2)),
                1E-7);
    EXPECT_EQ(data.ErrYpnt[j], 0.1);
  }
  EXPECT_EQ(data.kXpntErr, kTrue);
  // The weighted line with those errors.
  double S = 0, Sx = 0, Sy = 0, Sxx = 0, Sxy = 0;
  for (int j = 1; j <= 5; ++j) {
    const double w = 1 / (data.ErrEff[j] * data.ErrEff[j]);
    S += w, Sx += w * data.Xpnt[j], Sy += w * data.Ypnt[j];
    Sxx += w * data.Xpnt[j] * data.Xpnt[j], Sxy += w * data.Xpnt[j] * data.Ypnt[j];
  }
  const double slope = (S * Sxy - Sx * Sy) / (S * Sxx - Sx * Sx);
  EXPECT_NEAR(fit.value(1), slope, 1E-6);
  EXPECT_NEAR(fit.value(2), (Sy - slope * Sx) / S, 1E-6);
  EXPECT_EQ(result.status, FitStatus::kCompleted);
}

TEST(FitData, TakesTheSlopeOverAHundredthOfTheRangeOnEachSide) {
  // x^3 over 0..10: h = 0.1, and ((x+h)^3 - (x-h)^3) / 2h = 3x^2 + h^2.
  FitCase fit("a*x^3", "a");
  fit.data({0, 5, 10}, {0, 125, 1000}, {1, 1, 1}, {1, 1, 1});
  fit.start({1});
  fit.fit();
  EXPECT_NEAR(fit.session.loaded.data.ErrEff[1], std::sqrt(1 + 0.01 * 0.01), 1E-9);
  EXPECT_NEAR(fit.session.loaded.data.ErrEff[2], std::sqrt(1 + 75.01 * 75.01), 1E-6);
  EXPECT_NEAR(fit.session.loaded.data.ErrEff[3], std::sqrt(1 + 300.01 * 300.01), 1E-6);
}

TEST(FitData, CountsTheComputationsOfBothFits) {
  FitCase once = lineCase();
  once.data(kFive, kLineY, kTenths);
  once.start({1, 1});
  FitCase twice = lineCase();
  twice.data(kFive, kLineY, kTenths, Values(5, 0.01));
  twice.start({1, 1});
  EXPECT_GT(twice.fit().evaluations, once.fit().evaluations + 3);
}

TEST(FitData, TakesTheErrorsOfYAsEffectiveWhenAllXAreEqual) {
  FitCase fit("b*x", "b");
  fit.data({2, 2, 2}, {1, 2, 3}, {0.1, 0.2, 0.3}, {1, 1, 1});
  fit.start({1});
  const FitResult result = fit.fit();
  EXPECT_EQ(result.status, FitStatus::kCompleted);
  for (int j = 1; j <= 3; ++j)
    EXPECT_EQ(fit.session.loaded.data.ErrEff[j], fit.session.loaded.data.ErrYpnt[j]);
  EXPECT_EQ(fit.session.loaded.data.kXpntErr, kTrue);
}

TEST(FitData, DoesNotFitTwiceWhenTheFirstFitFails) {
  FitCase fit("b*LOG(x)", "b");
  fit.data({1, 2, -1}, {1, 2, 3}, {1, 1, 1}, {1, 1, 1});
  fit.start({1});
  fit.session.loaded.data.ErrEff[1] = 7;
  EXPECT_EQ(fit.fit().status, FitStatus::kFailed);
  EXPECT_THAT(fit.log.turns(), ElementsAre("start", "fail"));
  EXPECT_EQ(fit.session.loaded.data.ErrEff[1], 7);
  EXPECT_EQ(fit.session.loaded.data.kXpntErr, kTrue);
}

TEST(FitData, PutsTheFlagOfXErrorsBackWhenTheSecondFitFails) {
  // The last point, of slope 0, has an error whose square is lost: 0 as an effective error.
  FitCase fit("b*x*x", "b");
  fit.data({-1, 1, 0}, {1, 2, 0}, {1, 1, 1E-170}, {1, 1, 1});
  fit.start({1});
  const FitResult result = fit.fit();
  EXPECT_THAT(fit.log.turns(), ElementsAre("start", "finish", "start", "fail"));
  EXPECT_EQ(fit.session.loaded.data.kXpntErr, kTrue);
  EXPECT_EQ(result.status, FitStatus::kFailed);
}

TEST(FitData, FitsTwiceThoughTheConfidenceOfTheFirstFitHasSetTheFlag) {
  FitCase fit = lineCase();
  fit.data({1, 2}, {3, 5}, {0.1, 0.1}, {0.1, 0.1});
  fit.start({1, 2});
  const FitResult result = fit.fit();
  EXPECT_THAT(fit.log.turns(), ElementsAre("start", "finish", "start", "finish last"));
  EXPECT_EQ(result.status, FitStatus::kCompleted);
}

// ---- Degrees of freedom, confidence ------------------------------------------------------------------------

TEST(FitData, RunsWithoutDegreesOfFreedom) {
  FitCase fit = lineCase();
  fit.data({1, 2}, {3, 5}, {0.1, 0.1});
  fit.start({1, 2});
  const FitResult result = fit.fit();
  EXPECT_NEAR(fit.value(1), 2, 1E-6);
  EXPECT_NEAR(fit.value(2), 1, 1E-6);
  EXPECT_EQ(result.degrees_of_freedom, 0);
  EXPECT_FALSE(result.reduced_chi_square.has_value());
  EXPECT_FALSE(result.confidence_percent.has_value());
  EXPECT_EQ(fit.log.progresses.back().confidence, 0) << "shown, without meaning";
  EXPECT_EQ(fit.session.ErrFlag, -1);
}

TEST(FitData, HasTheConfidenceOfThousandsOfPointsWithoutABox) {
  const int points = 2000;
  FitCase fit("c", "c");
  Values x, y;
  for (int j = 0; j < points; ++j) {
    x.push_back(j);
    y.push_back(j % 2 == 0 ? 1 : -1);
  }
  // A chi-square of 0.988 for each of the 1999 degrees of freedom.
  fit.data(x, y, Values(points, std::sqrt(2000 / (0.988 * 1999))));
  fit.start({0.25});
  fit.session.analysis.par.FreeSteps[1] = 1E-3;
  const FitResult result = fit.fit();
  EXPECT_EQ(result.status, FitStatus::kCompleted);
  EXPECT_NEAR(*result.reduced_chi_square, 0.988, 1E-9);
  // The tail of the chi-square distribution, by Wilson and Hilferty.
  const double z = (std::cbrt(0.988) - (1 - 2 / (9 * 1999.0))) / std::sqrt(2 / (9 * 1999.0));
  EXPECT_NEAR(*result.confidence_percent, 50 * std::erfc(z / std::sqrt(2)), 0.01);
  EXPECT_EQ(fit.session.ErrFlag, 0);
  ASSERT_FALSE(fit.log.progresses.empty());
  EXPECT_TRUE(fit.log.progresses[0].confidence.has_value()) << "the running figure too";
}

TEST(FitData, ShowsTheBoxOfTheGammaFunctionInTheModelOnce) {
  FitCase fit("c*x+0*C_X2(800,800)", "c");
  fit.data(kFive, kLineY, kTenths);
  fit.start({1.5});
  fit.dialogs.expectBox();
  fit.fit();
  EXPECT_EQ(fit.dialogs.boxes,
            (std::vector<ScriptedDialogs::Box>{{"D_X2", "Errori nel Calcolo della Funzione"}}));
}

// ---- Failures ----------------------------------------------------------------------------------------------

TEST(FitData, TellsOfAParameterWithoutEffectByItsFreeNumber) {
  FitCase fit("a*x+0*b+c*x*x", "a,b,c");
  fit.data(kFive, kLineY, kTenths);
  fit.start({1, 7, 3}, "a");
  fit.dialogs.expectBox();
  const FitResult result = fit.fit();
  ASSERT_EQ(fit.dialogs.boxes.size(), 1U);
  EXPECT_EQ(fit.dialogs.boxes[0],
            (ScriptedDialogs::Box{"ERRORE !", "E( 1) ECCESSIVAMENTE PICCOLO!   <*> per Continuare"}));
  EXPECT_EQ(result.status, FitStatus::kFailed);
  EXPECT_EQ(result.end, MinimiseEnd::kNoEffect);
  EXPECT_NE(result.reason, "");
  EXPECT_EQ(fit.session.ErrFlag, -1);
  EXPECT_TRUE(fit.window.enabled);
  EXPECT_THAT(fit.log.turns(), ElementsAre("start", "fail"));
}

TEST(FitData, GivesTheOldValuesBackWhenAParameterHasNoEffect) {
  FitCase fit("b*x+0*c", "b,c");
  fit.data(kFive, kLineY, kTenths);
  fit.start({1, 7});
  fit.dialogs.expectBox();
  fit.fit();
  EXPECT_EQ(fit.dialogs.boxes[0].text, "E( 2) ECCESSIVAMENTE PICCOLO!   <*> per Continuare");
  EXPECT_EQ(fit.value(1), 1);
  EXPECT_EQ(fit.value(2), 7);
  EXPECT_EQ(fit.error(2), 1);
  EXPECT_EQ(fit.session.analysis.par.FreeValues[2], 7);
}

TEST(FitData, ShowsTheSameBoxForAParameterThatIsZeroWithAccuracyZero) {
  FitCase fit = lineCase();
  fit.data(kFive, kLineY, kTenths);
  fit.start({1, 0});
  fit.session.analysis.par.FreeSteps[2] = 0;
  fit.dialogs.expectBox();
  fit.fit();
  EXPECT_EQ(fit.dialogs.boxes[0].text, "E( 2) ECCESSIVAMENTE PICCOLO!   <*> per Continuare");
}

TEST(FitData, EndsSilentlyOnADomainErrorAtTheLastPoint) {
  FitCase fit("b*LOG(x)", "b");
  fit.data({1, 2, -1}, {1, 2, 3}, {1, 1, 1});
  fit.start({2});
  const FitResult result = fit.fit();
  EXPECT_EQ(result.status, FitStatus::kFailed);
  EXPECT_EQ(result.end, MinimiseEnd::kResidualsFailed);
  EXPECT_EQ(result.evaluations, 1);
  EXPECT_EQ(fit.session.ErrFlag, -1);
  EXPECT_EQ(fit.value(1), 2);
  EXPECT_TRUE(fit.window.enabled);
  EXPECT_THAT(fit.log.events, ElementsAre("start", "fail"));
}

TEST(FitData, LeavesTheValuesTriedLastOnASilentEnd) {
  // b = 2 is fine; the first difference, b = 2.02, takes the logarithm below zero.
  FitCase fit("LOG(2.01-b)+x", "b");
  fit.data({1, 2}, {1, 2}, {1, 1});
  fit.start({2});
  EXPECT_EQ(fit.fit().end, MinimiseEnd::kResidualsFailed);
  EXPECT_EQ(fit.value(1), 2.02);
}

TEST(FitData, GoesOnAfterADomainErrorInTheMiddle) {
  // QUIRK: the flag is cleared by each evaluation, so that only the last point's failure is seen.
  FitCase fit("b*x+0*LOG(x)", "b");
  fit.data({1, -1, 2}, {2, 5, 4}, {0.1, 0.1, 0.1});
  fit.start({1});
  const FitResult result = fit.fit();
  EXPECT_NE(result.status, FitStatus::kFailed);
  EXPECT_EQ(fit.session.ErrFlag, 0);
}

TEST(FitData, LeavesOutAPointInTheMiddleWithoutError) {
  // The residual cannot be divided by 0 and stays what it was: 0.
  FitCase fit = lineCase();
  fit.data(kFive, {1, 2, 77, 4, 5}, {0.1, 0.1, 0, 0.1, 0.1});
  fit.start({0.5, 0.5});
  const FitResult result = fit.fit();
  EXPECT_EQ(result.status, FitStatus::kCompleted);
  EXPECT_NEAR(fit.value(1), 1, 1E-6);
  EXPECT_NEAR(fit.value(2), 0, 1E-5);
}

TEST(FitData, EndsSilentlyWhenTheLastPointHasNoError) {
  FitCase fit = lineCase();
  fit.data({1, 2, 3}, {1, 2, 3}, {0.1, 0.1, 0});
  fit.start({0.5, 0.5});
  EXPECT_EQ(fit.fit().end, MinimiseEnd::kResidualsFailed);
  EXPECT_EQ(fit.session.ErrFlag, -1);
}

TEST(FitData, EndsSilentlyWhenParametersCannotBeToldApart) {
  FitCase fit("a+b", "a,b");
  fit.data({1, 2, 3, 4}, {1, 2, 3, 4}, {1, 1, 1, 1});
  fit.start({1, 2});
  fit.session.analysis.par.FreeSteps[1] = 0.5;
  fit.session.analysis.par.FreeSteps[2] = 0.5;
  const FitResult result = fit.fit();
  EXPECT_EQ(result.end, MinimiseEnd::kIndistinguishable);
  EXPECT_EQ(fit.session.ErrFlag, -1);
  EXPECT_EQ(fit.value(1), 1);
  EXPECT_EQ(fit.value(2), 2);
}

TEST(FitData, ClearsTheErrorFlagAtItsStart) {
  FitCase fit = lineCase();
  fit.data(kFive, kLineY, kTenths);
  fit.start({1, 1});
  fit.session.ErrFlag = kCancelled;
  fit.fit();
  EXPECT_EQ(fit.session.ErrFlag, 0);
}

TEST(FitData, EndsSilentlyWithErrorsThatAreNotFinite) {
  // The parameter may be anything up to 1E160, whose square is beyond all numbers.
  FitCase fit("c*1E-160*x", "c");
  fit.data({1, 2}, {0, 0}, {1, 1}, {1, 1});
  fit.start({1E10});
  GridOutput output;
  FitScreen screen(fit.session, output);
  const FitResult result = FitData(fit.session, fit.dialogs, fit.window, fit.clock, screen);
  EXPECT_EQ(result.status, FitStatus::kFailed);
  EXPECT_EQ(result.end, MinimiseEnd::kErrorsNotFinite);
  EXPECT_EQ(result.reason, "errori non finiti");
  EXPECT_FALSE(result.reduced_chi_square.has_value());
  EXPECT_EQ(fit.session.ErrFlag, -1);
  EXPECT_EQ(fit.value(1), fit.session.analysis.par.FreeValues[1]);
  EXPECT_NE(fit.value(1), 1E10) << "the value tried last";
  EXPECT_EQ(fit.error(1), 1) << "what it held";
  EXPECT_FALSE(output.isOpen()) << "no closing words";
  EXPECT_TRUE(fit.window.enabled);
  EXPECT_EQ(fit.session.loaded.data.kXpntErr, kTrue);
}

// ---- Window, clock, events ---------------------------------------------------------------------------------

TEST(FitData, ShutsTheMainWindowWhileItRuns) {
  struct Watch : FitLog {
    RecordingMainWindow* window = nullptr;
    bool alwaysShut = true;
    void started(const FitStart&) override { alwaysShut = alwaysShut && !window->enabled; }
    void finished(const FitFinal&) override { alwaysShut = alwaysShut && !window->enabled; }
  } watch;
  FitCase fit = lineCase();
  watch.window = &fit.window;
  fit.data(kFive, kLineY, kTenths, kTenths);
  fit.start({1, 1});
  FitData(fit.session, fit.dialogs, fit.window, fit.clock, watch);
  EXPECT_TRUE(watch.alwaysShut);
  EXPECT_TRUE(fit.window.enabled);
}

TEST(FitData, OpensTheMainWindowAndPutsTheFlagBackOnAnUnguardedError) {
  struct Breaking : FitLog {
    int starts = 0;
    void started(const FitStart&) override {
      if (++starts == 2) throw RuntimeError(kOverflow);
    }
  } breaking;
  FitCase fit = lineCase();
  fit.data(kFive, kLineY, kTenths, kTenths);
  fit.start({1, 1});
  EXPECT_THROW(FitData(fit.session, fit.dialogs, fit.window, fit.clock, breaking), RuntimeError);
  EXPECT_TRUE(fit.window.enabled);
  EXPECT_EQ(fit.session.loaded.data.kXpntErr, kTrue);
}

TEST(FitData, TellsProgressBeforeTheFirstIteration) {
  FitCase fit = lineCase();
  fit.data(kFive, kLineY, kTenths);
  fit.start({1, 1});
  fit.fit();
  ASSERT_FALSE(fit.log.progresses.empty());
  EXPECT_EQ(fit.log.progresses[0].iteration, 0);
  EXPECT_EQ(fit.log.progresses[0].degreesOfFreedom, 3);
  // 1 + x against y at the start: residuals -0.1, -0.9, -2.2, -2.8, -4.1 over 0.1.
  EXPECT_NEAR(*fit.log.progresses[0].reducedChiSquare, (0.01 + 0.81 + 4.84 + 7.84 + 16.81) * 100 / 3, 1E-9);
}

TEST(FitData, CountsWholeSecondsFromTheStartOfEachOfTheTwoFits) {
  struct Slow : FitLog {
    StillClock* clock = nullptr;
    void started(const FitStart& start) override {
      FitLog::started(start);
      clock->now += 100;  // drawing the screen does not count
    }
    void progress(const FitProgress& p) override {
      FitLog::progress(p);
      clock->now += 1.75F;
    }
  } slow;
  FitCase fit = lineCase();
  slow.clock = &fit.clock;
  fit.data(kFive, kLineY, kTenths, kTenths);
  fit.start({1, 1});
  FitData(fit.session, fit.dialogs, fit.window, fit.clock, slow);
  int starts = 0, inFit = 0;
  std::size_t next = 0;
  for (const std::string& event : slow.events) {
    if (event == "start") ++starts, inFit = 0;
    if (event != "progress") continue;
    EXPECT_EQ(slow.progresses[next++].seconds, static_cast<int>(inFit++ * 1.75));
  }
  EXPECT_EQ(starts, 2);
}

TEST(FitData, TwoSessionsAreFittedSideBySide) {
  FitCase one = lineCase(), other("c", "c");
  one.data(kFive, kLineY, kTenths);
  other.data({1, 2, 3}, {1, 2, 3}, {1, 1, 1});
  one.start({1, 1});
  other.start({1});
  other.fit();
  one.fit();
  EXPECT_NEAR(one.value(1), 1.99, 1E-6);
  EXPECT_NEAR(other.value(1), 2, 1E-6);
}

// ---- Any problem -------------------------------------------------------------------------------------------

// Numbers of very different sizes, the same in each run.
class Numbers {
 public:
  double next() {
    state_ = state_ * 1664525U + 1013904223U;
    const double fraction = static_cast<double>(state_ >> 8) / 8388608.0 - 1;
    const int size = static_cast<int>(state_ % 13);
    return size == 0 ? 0 : fraction * std::pow(10, size < 10 ? size % 3 : size * 20 - 200);
  }

 private:
  unsigned state_ = 2024;
};

TEST(FitData, EndsWithFiniteNumbersWhateverTheProblem) {
  const std::pair<const char*, const char*> models[] = {
      {"a+0*x", "a"},     {"a*x+b", "a,b"},           {"a*EXP(b*x)", "a,b"},      {"a*EXP(b*x)+c", "a,b,c"},
      {"a/(x-b)", "a,b"}, {"SQR(a*x)+LOG(b)", "a,b"}, {"a*x^b+c*x^d", "a,b,c,d"}, {"a+b+c*x", "a,b,c"}};
  Numbers numbers;
  int failures = 0, completions = 0;
  for (int k = 0; k < 2000; ++k) {
    const auto& [formula, names] = models[k % 8];
    FitCase fit(formula, names);
    const int points = 1 + k % 7;
    Values x, y, dy, dx;
    for (int j = 0; j < points; ++j) {
      x.push_back(numbers.next()), y.push_back(numbers.next()), dy.push_back(numbers.next());
      if (k % 3 == 0) dx.push_back(numbers.next());
    }
    fit.data(x, y, dy, dx);
    Values start;
    for (int i = 0; i < fit.session.analysis.par.ParCount; ++i) start.push_back(numbers.next());
    fit.start(start);
    struct : ScriptedDialogs {
      void plainBox(const std::string&, const std::string&) override {}
    } patient;
    const FitResult result = FitData(fit.session, patient, fit.window, fit.clock, fit.log);
    EXPECT_TRUE(fit.window.enabled);
    EXPECT_EQ(fit.session.loaded.data.kXpntErr, toFlag(k % 3 == 0));
    EXPECT_LE(result.evaluations, 2 * 4 * 1003);
    EXPECT_TRUE(std::isfinite(result.chi_square)) << k;
    if (result.status == FitStatus::kFailed) {
      ++failures;
      EXPECT_NE(fit.session.ErrFlag, 0) << k;
      EXPECT_NE(result.reason, "");
      continue;
    }
    ++completions;
    for (int i = 1; i <= fit.session.analysis.par.ParCount; ++i) {
      EXPECT_TRUE(std::isfinite(fit.value(i)) && std::isfinite(fit.error(i))) << k << ' ' << formula;
    }
  }
  EXPECT_GT(failures, 100);
  EXPECT_GT(completions, 100);
}

// ---- With the screen ---------------------------------------------------------------------------------------

TEST(FitData, DrawsItsScreen) {
  FitCase fit = lineCase();
  fit.data(kFive, kLineY, kTenths);
  fit.start({1, 1});
  GridOutput output;
  FitScreen screen(fit.session, output);
  FitData(fit.session, fit.dialogs, fit.window, fit.clock, screen);
  EXPECT_TRUE(output.isOpen());
  EXPECT_THAT(output.grid().toUtf8(),
              testing::HasSubstr("│      Completata       │ X²/µ       0.3567E+01   │"));
  EXPECT_THAT(output.grid().toUtf8(), testing::HasSubstr("│  b  │ 0.199000E+01 │ "));
}

TEST(FitData, KeepsThePlaceholderOfTheReducedChiSquareWithoutDegreesOfFreedom) {
  FitCase fit = lineCase();
  fit.data({1, 2}, {3, 5}, {0.1, 0.1});
  fit.start({1, 2});
  GridOutput output;
  FitScreen screen(fit.session, output);
  FitData(fit.session, fit.dialogs, fit.window, fit.clock, screen);
  EXPECT_THAT(output.grid().toUtf8(), testing::HasSubstr("X²/µ       #.####^^^^"));
  EXPECT_THAT(output.grid().toUtf8(), testing::HasSubstr("Liv. Conf. 0.00E+00 %"));
}

TEST(FitData, ClosesTheScreenOfAFailedFit) {
  FitCase fit("b*LOG(x)", "b");
  fit.data({1, 2, -1}, {1, 2, 3}, {1, 1, 1});
  fit.start({2});
  GridOutput output;
  FitScreen screen(fit.session, output);
  FitData(fit.session, fit.dialogs, fit.window, fit.clock, screen);
  EXPECT_FALSE(output.isOpen());
}

}  // namespace
}  // namespace vk
