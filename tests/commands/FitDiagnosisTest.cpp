#include "commands/FitDiagnosis.h"

#include "commands/FitCommand.h"
#include "doubles/Doubles.h"
#include "doubles/ScriptedForms.h"
#include "doubles/TestPorts.h"
#include "tests/analysis/FitFixture.h"
#include "tests/numeric/SampleValues.h"

namespace vk {
namespace {

using testing::HasSubstr;

/// A fit on its screen, and the keys on it.
struct FitAndDiagnosis : FitCase {
  Session session;
  ScriptedDialogs dialogs;
  RecordingMainWindow window;
  RecordingOutput output;
  RecordingReport report;

  using FitCase::FitCase;
  void run() {
    session.loaded.data = points;
    session.loaded.DataDefined = session.analysis.FunDefined = session.analysis.ParVar = kTrue;
    session.analysis.fun.FunctionText = "y = f(x)";
    session.analysis.model = model;
    session.analysis.par = par;
    MenAdaAda(session, ports);
  }
  std::string diagnosis() {
    showDiagnosis(session, ports);
    return report.reports.empty() ? "none" : report.reports.back().text.toUtf8();
  }
  std::string figure() const { return std::string(report.reports.back().figureMeaning.bytes()); }

  TestPorts ports{dialogs, window, output, report};
};

FitAndDiagnosis& line(FitAndDiagnosis& fit) {
  fit.data(kFive, kLineY, kTenths);
  fit.start({1, 1});
  fit.run();
  return fit;
}

TEST(FitDiagnosis, OpensFromTheScreenOfTheFitAlone) {
  FitAndDiagnosis fit("b*x+c", "b,c");
  EXPECT_EQ(fit.diagnosis(), "none") << "there is no fit yet";
  line(fit);
  EXPECT_TRUE(fit.report.reports.empty()) << "nobody has asked";
  EXPECT_EQ(fit.output.detail().meaning, "F2 o il tasto Menu mostrano la Diagnosi dell'Adattamento");
  fit.output.detail().open();
  ASSERT_EQ(fit.report.reports.size(), 1U);
  EXPECT_EQ(fit.report.reports[0].caption, "VOR_KEL: Diagnosi dell'Adattamento");
  fit.output.OutShow({});
  EXPECT_FALSE(fit.output.detail().open) << "another report has nothing of the fit";
}

// The lines of the parameters come from FitDiagnosisTest.py.
TEST(FitDiagnosis, ShowsTheTableTheProbabilityAndWhatTheWarningsMean) {
  FitAndDiagnosis fit("b*x+c", "b,c");
  EXPECT_EQ(line(fit).diagnosis(), R"(  y = f(x)
┌───────────────────────────────────────────────────┐
│              Minimo e Errori Lineari              │
├─────────────────────────┬─────────────────────────┤
│     Minimizzazione      │ µ                   3   │
│    Minimo Raggiunto     │ X²/µ       0.3567E+01   │
│                         │ Liv. Conf.   1.3464 %   │
└─────────────────────────┴─────────────────────────┘
┌─────┬──────────────┬──────────────┬───────────────┐
│ Par │    Valore    │    Errore    │ Err. Scalato  │
├─────┼──────────────┼──────────────┼───────────────┤
│  b  │ 0.199000E+01 │ 0.316228E-01 │ 0.597216E-01  │
│  c  │ 0.500000E-01 │ 0.104881E+00 │ 0.198074E+00  │
├─────┼──────────────┴──────────────┴───────────────┤
│ Par │ Mat. Cor.%                                  │
├─────┼─────────────────────────────────────────────┤
│  b  │ _____ _____                                 │
│  c  │   -90 _____                                 │
├─────┴─────────────────────────────────────────────┤
│ - Errore maggiore del valore: c                   │
└───────────────────────────────────────────────────┘

  X² = 0.1070E+02, gradi di liberta` 3: un X²
    maggiore ha una probabilita` di 1.3464 %.
  Errore maggiore del valore: L'errore supera il
    valore del parametro: i dati NON lo distinguono
    da zero.
)");
  EXPECT_EQ(fit.figure(), "Scarti divisi per i loro errori: 5 punti, 1 oltre 2, il maggiore -2.10 a x = 4");
}

TEST(FitDiagnosis, IsOfTheFitOnTheScreenWhateverHasBeenReadSince) {
  FitAndDiagnosis fit("b*x+c", "b,c");
  const std::string before = line(fit).diagnosis();
  fit.session.loaded.data.shorten(2);
  fit.session.analysis.model = Model();
  fit.session.analysis.par = ParameterSet();
  fit.session.analysis.fun.FunctionText = "y = altro";
  EXPECT_EQ(fit.diagnosis(), before);
}

TEST(FitDiagnosis, ClosesWithTheNextFit) {
  FitAndDiagnosis fit("b*x+c", "b,c");
  line(fit).diagnosis();
  EXPECT_TRUE(fit.report.open);
  fit.run();
  EXPECT_FALSE(fit.report.open);
}

TEST(FitDiagnosis, ShutsTheMainWindowWhileItComputes) {
  FitAndDiagnosis fit("b*x+c", "b,c");
  line(fit);
  fit.window.calls.clear();
  fit.diagnosis();
  EXPECT_EQ(fit.window.calls, (std::vector<std::string>{"shut", "release"}));
}

TEST(FitDiagnosis, OpensBehindAFitThatFailed) {
  FitAndDiagnosis fit("A*EXP(-k*x)+0*q", "A,k,q");
  fit.data(kFive, {6, 3.7, 2.2, 1.4, 0.8}, kTenths);
  fit.start({9, 0.4, 1});
  fit.dialogs.expectBox();
  fit.run();
  EXPECT_FALSE(fit.output.isOpen());
  EXPECT_THAT(fit.diagnosis(), HasSubstr("│  k  │ 0.494326E+00 │ ___________  │"));
  EXPECT_THAT(fit.diagnosis(), HasSubstr("Parametri Dipendenti"));
  EXPECT_THAT(fit.figure(), HasSubstr("5 punti"));
}

TEST(FitDiagnosis, TellsThatThereAreTooFewPoints) {
  FitAndDiagnosis fit("b*x+c", "b,c");
  fit.data({1}, {3}, {0.1});
  fit.start({1, 2});
  fit.run();
  EXPECT_THAT(fit.diagnosis(), HasSubstr("Parametri Dipendenti"));
  EXPECT_THAT(fit.diagnosis(), HasSubstr("qualcuno va tenuto costante"));
  EXPECT_THAT(fit.figure(), HasSubstr("1 punto"));
}

TEST(FitDiagnosis, TellsNoChiSquareBeyondTheRangeOfNumbers) {
  FitAndDiagnosis fit("a*x", "a");
  fit.data({1, 2}, {1E200, 2E200}, {1, 1});
  fit.start({1});
  fit.run();
  EXPECT_THAT(fit.diagnosis(), HasSubstr("Senza Progresso"));
  EXPECT_THAT(fit.diagnosis(), testing::Not(HasSubstr("Inf")));
}

TEST(FitDiagnosis, TellsAPointWithoutAValue) {
  FitAndDiagnosis fit("a*LOG(x)", "a");
  fit.data({1, 2, -1}, {1, 2, 3}, {1, 1, 1});
  fit.start({2});
  fit.run();
  EXPECT_THAT(fit.diagnosis(), HasSubstr("NON Calcolabile"));
  EXPECT_THAT(fit.diagnosis(), HasSubstr("Punto 3."));
  EXPECT_THAT(fit.diagnosis(), testing::Not(HasSubstr("X² =")));
}

TEST(FitDiagnosis, HasNoProbabilityWithoutDegreesOfFreedom) {
  FitAndDiagnosis fit("b*x+c", "b,c");
  fit.data({1, 2}, {3, 5}, {0.1, 0.1});
  fit.start({1, 2});
  fit.run();
  EXPECT_THAT(fit.diagnosis(), HasSubstr(", gradi di liberta` 0.\n"));
  EXPECT_THAT(fit.figure(), HasSubstr("2 punti, 0 oltre 2"));
}

TEST(FitDiagnosis, KeepsConstantParametersAndSaysHowErrorsInXCount) {
  FitAndDiagnosis fit("b*x+c", "b,c");
  fit.data(kFive, kLineY, kTenths, kTenths);
  fit.start({1, 0.03}, "c");
  fit.run();
  EXPECT_THAT(fit.diagnosis(), HasSubstr("│  c  │ 0.300000E-01 │ ___________  │"));
  EXPECT_THAT(fit.diagnosis(), HasSubstr("  Varianza Efficace: "));
}

TEST(FitDiagnosis, RefreshesWhileManyPointsAreComputed) {
  FitAndDiagnosis fit("b*x+c", "b,c");
  Values x, y;
  for (int i = 0; i < 32767; ++i) {
    x.push_back(i);
    y.push_back(2 * i + (i % 7 - 3) * 0.1);
  }
  fit.data(x, y, Values(x.size(), 0.2));
  fit.start({1, 1});
  fit.run();
  fit.output.refreshed.clear();
  EXPECT_THAT(fit.diagnosis(), HasSubstr("Minimo Raggiunto"));
  EXPECT_FALSE(fit.output.refreshed.empty());
  EXPECT_THAT(fit.figure(), HasSubstr("32767 punti"));
}

}  // namespace
}  // namespace vk
