#include "base/NumberText.h"
#include "base/Text.h"
#include "commands/FitCommand.h"
#include "doubles/Doubles.h"
#include "doubles/ScriptedDialogs.h"
#include "doubles/ScriptedForms.h"
#include "doubles/TestPorts.h"
#include "tests/analysis/FitFixture.h"
#include "tests/numeric/SampleValues.h"

namespace vk {
namespace {

/// A fit as the menu runs it.
struct FitOnScreen : FitCase {
  Session session;
  ScriptedDialogs dialogs;
  RecordingMainWindow window;
  RecordingOutput output;
  StillClock clock;

  using FitCase::FitCase;
  void run() { run(output); }
  void run(OutputWindow& shown) {
    session.loaded.data = points;
    session.loaded.DataDefined = session.analysis.FunDefined = session.analysis.ParVar = kTrue;
    session.analysis.model = model;
    session.analysis.par = par;
    MenAdaAda(session, TestPorts(dialogs, window, shown, clock));
  }
  std::string screen() const { return output.grid().toUtf8(); }
};

FitOnScreen straightLine() {
  return {"b*x+c", "b,c"};
}

TEST(FitOnScreen, DrawsItsScreen) {
  FitOnScreen fit = straightLine();
  fit.data(kFive, kLineY, kTenths);
  fit.start({1, 1});
  fit.run();
  EXPECT_TRUE(fit.output.isOpen());
  EXPECT_THAT(fit.screen(), testing::HasSubstr("│      Completata       │ X²/µ       0.3567E+01   │"));
  EXPECT_THAT(fit.screen(), testing::HasSubstr("│  b  │ 0.199000E+01 │ "));
}

TEST(FitOnScreen, KeepsThePlaceholderOfTheReducedChiSquareWithoutDegreesOfFreedom) {
  FitOnScreen fit = straightLine();
  fit.data({1, 2}, {3, 5}, {0.1, 0.1});
  fit.start({1, 2});
  fit.run();
  EXPECT_THAT(fit.screen(), testing::HasSubstr("X²/µ       #.####^^^^"));
  EXPECT_THAT(fit.screen(), testing::HasSubstr("Liv. Conf. 0.00E+00 %"));
}

TEST(FitOnScreen, ClosesTheScreenOfAFailedFit) {
  FitOnScreen fit("b*LOG(x)", "b");
  fit.data({1, 2, -1}, {1, 2, 3}, {1, 1, 1});
  fit.start({2});
  fit.run();
  EXPECT_FALSE(fit.output.isOpen());
  EXPECT_TRUE(fit.window.enabled);
}

TEST(FitOnScreen, HasNoClosingWordsForErrorsThatAreNotFinite) {
  FitOnScreen fit("c*1E-160*x", "c");
  fit.data({1, 2}, {0, 0}, {1, 1}, {1, 1});
  fit.start({1E10});
  fit.run();
  EXPECT_FALSE(fit.output.isOpen());
  EXPECT_TRUE(fit.window.enabled);
}

TEST(FitOnScreen, TellsOfAParameterWithoutEffectInABoxByItsFreeNumber) {
  FitOnScreen fit("a*x+0*b+c*x*x", "a,b,c");
  fit.data(kFive, kLineY, kTenths);
  fit.start({1, 7, 3}, "a");
  fit.dialogs.expectBox();
  fit.run();
  ASSERT_EQ(fit.dialogs.boxes.size(), 1U);
  EXPECT_EQ(fit.dialogs.boxes[0],
            (ScriptedDialogs::Box{"ERRORE !", "E( 1) ECCESSIVAMENTE PICCOLO!   <*> per Continuare"}));
  EXPECT_TRUE(fit.window.enabled);
  EXPECT_FALSE(fit.output.isOpen());
}

TEST(FitOnScreen, ShowsTheBoxOfTheGammaFunctionInTheModelOnce) {
  FitOnScreen fit("c*x+0*C_X2(800,800)", "c");
  fit.data(kFive, kLineY, kTenths);
  fit.start({1.5});
  fit.dialogs.expectBox();
  fit.run();
  EXPECT_EQ(fit.dialogs.boxes,
            (std::vector<ScriptedDialogs::Box>{{"D_X2", "Errori nel Calcolo della Funzione"}}));
}

TEST(FitOnScreen, ClearsTheErrorFlagOrSetsIt) {
  FitOnScreen fit = straightLine();
  fit.data(kFive, kLineY, kTenths);
  fit.start({1, 1});
  fit.session.ErrFlag = kCancelled;
  fit.run();
  EXPECT_EQ(fit.session.ErrFlag, 0);
  fit.data({1, 2}, {3, 5}, {0.1, 0.1});
  fit.run();
  EXPECT_EQ(fit.session.ErrFlag, -1) << "there is no degree of freedom";
}

// ---- Window and clock -------------------------------------------------------------------------------------

/// Looks at the main window, or moves the clock, whenever the screen is drawn.
struct WatchedOutput : RecordingOutput {
  std::function<void()> opening, refreshing;
  void OutShow(const OutputRequest& request) override {
    if (opening) opening();
    RecordingOutput::OutShow(request);
  }
  void refresh() override {
    RecordingOutput::refresh();
    if (refreshing) refreshing();
  }
};

TEST(FitOnScreen, ShutsTheMainWindowWhileItRuns) {
  FitOnScreen fit = straightLine();
  fit.data(kFive, kLineY, kTenths, kTenths);
  fit.start({1, 1});
  WatchedOutput output;
  bool alwaysShut = true;
  output.opening = output.refreshing = [&] { alwaysShut = alwaysShut && !fit.window.enabled; };
  fit.run(output);
  EXPECT_TRUE(alwaysShut);
  EXPECT_TRUE(fit.window.enabled);
}

TEST(FitOnScreen, OpensTheMainWindowOnAnUnguardedError) {
  FitOnScreen fit = straightLine();
  fit.data(kFive, kLineY, kTenths, kTenths);
  fit.start({1, 1});
  WatchedOutput output;
  int starts = 0;
  output.opening = [&] {
    if (++starts == 2) throw RuntimeError(kOverflow);
  };
  EXPECT_THROW(fit.run(output), RuntimeError);
  EXPECT_TRUE(fit.window.enabled);
  EXPECT_EQ(fit.session.loaded.data.kXpntErr, kTrue);
}

TEST(FitOnScreen, CountsWholeSecondsFromTheStartOfEachOfTheTwoFits) {
  FitOnScreen fit = straightLine();
  fit.data(kFive, kLineY, kTenths, kTenths);
  fit.start({1, 1});
  WatchedOutput output;
  output.opening = [&] { fit.clock.now += 100; };  // drawing the screen does not count
  output.refreshing = [&] { fit.clock.now += 1.75F; };
  fit.run(output);
  int starts = 0, inFit = 0;
  for (const CharGrid& shown : output.refreshed) {
    const std::string seconds = mid(shown.rowText(6), 3, 9);
    if (seconds == "Sec. ####") {
      ++starts, inFit = 0;
      continue;
    }
    EXPECT_EQ(scanNumber(mid(seconds, 6)), static_cast<int>(inFit++ * 1.75)) << seconds;
  }
  EXPECT_EQ(starts, 2);
}

}  // namespace
}  // namespace vk
