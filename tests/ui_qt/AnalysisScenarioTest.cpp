#include <QLineEdit>
#include <QPlainTextEdit>

#include "ui_qt/Desktop.h"

namespace vk {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;

/// Propagation of errors, simulation and transformation, as a user goes through their windows.
class AnalysisScenarioTest : public Desktop {
 protected:
  void SetUp() override { start(); }
  void readData(const std::string& name) {
    user.choose("MenDatLet");
    user.file(QString::fromStdString(name));
  }
  std::string report() { return application.output().model().grid().toUtf8(); }
  void pressOutput(int index) { user.press("FrmOut", QString("CmdOut(%1)").arg(index)); }
  std::vector<double> column(const Array<double>& values) {
    const auto part = values.span(1, session().loaded.data.NumPnt);
    return {part.begin(), part.end()};
  }
};

TEST_F(AnalysisScenarioTest, TheHistogramOfAPropagationIsSavedReadAndFitted) {
  chooseFunction(0, 0);
  user.choose("MenSerPro");
  user.at("InpFrm", [](QWidget* form) { EXPECT_EQ(form->windowTitle(), "VOR_KEL: Propagazione Errori"); });
  fillForm({"0", "20", "0", ".5"});
  act();
  ASSERT_NE(windowNamed("FrmOut"), nullptr);
  EXPECT_EQ(windowNamed("FrmOut")->windowTitle(), "VOR_KEL: Propagazione Errori");
  EXPECT_EQ(control<QPushButton>(windowNamed("FrmOut"), "CmdOut(3)")->text(), "Salva &File");
  EXPECT_THAT(report(), HasSubstr("c = 0.200000E+02   δc = 0.500E+00 σ"));
  EXPECT_THAT(report(), HasSubstr("N =    10000"));
  EXPECT_TRUE(window().isEnabled());
  EXPECT_EQ(session().analysis.par.ParValues[1], 20);
  pressOutput(3);
  act();
  EXPECT_EQ(windowNamed("FrmOut"), nullptr) << "it closes behind the save";
  EXPECT_EQ(session().ErrFlag, 0);

  user.choose("MenFunLet");
  user.file(QString::fromStdString(folder.make("gauss.fcn", "A,m,s\r\nA*EXP(-((x-m)/s)^2/2)\r\nGauss\r\n")));
  user.choose("MenFunCar");
  user.press("Loa_Fun", "CmdAcc");
  chooseFunction(0, 5);
  readData("Mon_Sim.DAT");
  user.choose("MenAdaPar");
  fillForm({"1", "19", "1", "1", "1", "1"});
  user.choose("MenAdaAda");
  act();
  EXPECT_EQ(session().loaded.data.TitleX, "Sim. M.C. per y = c");
  // The clock seeds the samples: the fit is only held to what every run gives.
  EXPECT_THAT(report(), HasSubstr("Liv. Conf."));
  EXPECT_NEAR(session().analysis.par.ParValues[1], 0.7979, 0.08);
  EXPECT_NEAR(session().analysis.par.ParValues[2], 20, 0.05);
  EXPECT_NEAR(session().analysis.par.ParValues[3], 0.5, 0.05);
}

TEST_F(AnalysisScenarioTest, BehindAPropagationTheFitAsksForItsParameters) {
  readData(folder.make("retta.dat", lineData()));
  chooseFunction(0, 1);
  user.choose("MenAdaPar");
  fillForm({"1", "0", "1", "1"});
  act();
  EXPECT_TRUE(menuOn("MenDatSim"));
  user.choose("MenSerPro");
  fillForm({"3", "2", "1", "0", "-.5", ".1"});
  act();
  pressOutput(0);
  act();
  EXPECT_FALSE(menuOn("MenDatSim"));
  EXPECT_TRUE(menuOn("MenAdaAda"));
  EXPECT_EQ(panel(5), "Par.Var.: NO");
  user.choose("MenAdaAda");
  answerBox();
  act();
  EXPECT_THAT(boxes, ElementsAre(QString("Parametri NON Definiti!  <*> per Continuare")));
  user.choose("MenAdaPar");
  fillForm({"1", "0", "1", "1"});
  user.choose("MenAdaAda");
  act();
  EXPECT_THAT(report(), HasSubstr("Completata"));
}

TEST_F(AnalysisScenarioTest, APropagationThatFailsClosesItsWindow) {
  chooseFunction(0, 0);
  user.choose("MenSerPro");
  fillForm({"0", "20", "0", "0"});
  answerBox();
  act();
  EXPECT_THAT(boxes,
              ElementsAre(QString(
                  "Errori nella Simulazione di Monte Carlo\nla funzione NON dipende dalle variabili")));
  EXPECT_EQ(windowNamed("FrmOut"), nullptr);
  EXPECT_TRUE(window().isEnabled());
  EXPECT_EQ(session().analysis.par.ParValues[1], 20);
}

TEST_F(AnalysisScenarioTest, SimulatedDataAreFittedAtOnce) {
  chooseFunction(0, 1);
  user.choose("MenAdaPar");
  fillForm({"2", "1", "1", "1"});
  user.choose("MenDatSim");
  user.at("InpFrm", [](QWidget* form) { EXPECT_EQ(form->windowTitle(), "VOR_KEL: Simulazione Dati"); });
  fillForm({"0", "10", "21", ".25", "1", "0", "0"});
  act();
  EXPECT_EQ(panel(1), "Dati: SIMULA.DAT");
  EXPECT_EQ(session().loaded.data.NumPnt, 21);
  EXPECT_THAT(report(), HasSubstr("Completata"));
  EXPECT_EQ(session().analysis.par.ParValues[1], 2) << "the truth, not the fit";
  pressOutput(0);

  // What is not reasonable is corrected and told; giving up there leaves the new data without a fit.
  user.choose("MenDatSim");
  fillForm({"10", "0", "11", ".25", "1", "0", "0"});
  user.at("FrmMsg", [](QWidget* message) {
    EXPECT_EQ(message->windowTitle(), "Vor_Kel: Simulazione Dati");
    EXPECT_THAT(message->accessibleDescription().toStdString(),
                HasSubstr("*** Xmin > Xmax: Scambiati Xmin e Xmax"));
    QTest::mouseClick(control<QPushButton>(message, "CmdMsg(0)"), Qt::LeftButton);
  });
  act();
  EXPECT_EQ(session().loaded.data.NumPnt, 11);
  EXPECT_EQ(windowNamed("FrmOut"), nullptr);
  EXPECT_TRUE(window().isEnabled());
  EXPECT_EQ(folder.count(), 0) << "nothing is written";
}

TEST_F(AnalysisScenarioTest, AfterATransformationThatWasGivenUpTheLoadedFunctionIsFitted) {
  readData(folder.make("retta.dat", lineData()));
  user.choose("MenFunLet");
  user.file(QString::fromStdString(folder.make("f.fcn", "p,q\r\np*x+q\r\nretta\r\n")));
  user.choose("MenFunCar");
  user.press("Loa_Fun", "CmdAcc");
  chooseFunction(0, 5);
  user.choose("MenAdaPar");
  fillForm({"1", "0", "1", "1"});
  user.choose("MenDatTra");
  enterFields({"x", "y", "x*100", "y"});
  user.press("InpFrm", "cmdRin");
  user.choose("MenAdaAda");
  act();
  EXPECT_THAT(report(), HasSubstr("Completata"));
  EXPECT_NEAR(session().analysis.par.ParValues[1], 2, 0.01);
  EXPECT_NEAR(session().analysis.par.ParValues[2], 1, 0.05);
}

TEST_F(AnalysisScenarioTest, ColumnsAreTransformedSavedAndReadBack) {
  readData(folder.make("tre.dat", "t\r\ns\r\n3\r\n1 4 .1\r\n2 5 .2\r\n3 6 .3\r\n"));
  user.choose("MenDatTra");
  user.at("InpFrm", [](QWidget* form) { EXPECT_EQ(form->windowTitle(), "VOR_KEL: Trasformazione Dati"); });
  // The field knows dx, these data do not.
  fillForm({"a", "b", "x*2", "y+dx", "dy"});
  answerBox();
  act();
  EXPECT_THAT(boxes, ElementsAre(QString("Errore nella Definizione di  y  <*> per Continuare")));
  EXPECT_THAT(column(session().loaded.data.Xpnt), ElementsAre(1, 2, 3));
  EXPECT_EQ(session().loaded.data.TitleX, "t");
  EXPECT_TRUE(window().isEnabled());

  user.choose("MenDatTra");
  fillForm({"a", "b", "x*2", "x+y", "dy"});
  user.choose("MenDatSav");
  user.file("nuovo");
  readData("nuovo.DAT");
  act();
  EXPECT_EQ(session().loaded.data.TitleX, "a");
  EXPECT_EQ(session().loaded.data.TitleY, "b");
  EXPECT_THAT(column(session().loaded.data.Xpnt), ElementsAre(2, 4, 6));
  EXPECT_THAT(column(session().loaded.data.Ypnt), ElementsAre(5, 7, 9));
}

}  // namespace
}  // namespace vk
