#include <QApplication>
#include <QClipboard>
#include <QMessageBox>
#include <QMimeData>
#include <QProcess>

#include "base/NumberMasks.h"
#include "base/Text.h"
#include "ui_qt/Desktop.h"

namespace vk {
namespace {

using testing::HasSubstr;

class ScenarioTest : public Desktop {
 protected:
  void SetUp() override { start(); }
  void readData(const std::string& path) {
    user.choose("MenDatLet");
    user.file(QString::fromStdString(path));
  }
  void chooseOnly(const QString& command) {
    user.choose(command);
    act();
  }
  std::string report() { return application.output().model().grid().toUtf8(); }
  void pressOutput(int index) { user.press("FrmOut", QString("CmdOut(%1)").arg(index)); }
};

TEST_F(ScenarioTest, FromADataFileToThePrintedReportAndBack) {
  readData(folder.make("retta.dat", lineData()));
  act();
  EXPECT_EQ(panel(1), "Dati: retta.dat");
  EXPECT_EQ(session().loaded.data.NumPnt, 9);
  EXPECT_TRUE(menuOn("MenDatSav"));
  EXPECT_TRUE(menuOn("MenGraDatVis"));
  EXPECT_FALSE(menuOn("MenGraDatGra"));

  chooseFunction(0, 1);
  act();
  EXPECT_EQ(panel(4), "Fun.Att.: SI");

  user.choose("MenAdaPar");
  fillForm({"1", "0", "1", "1"});
  act();
  EXPECT_EQ(panel(5), "Par.Var.: SI");
  EXPECT_TRUE(menuOn("MenAdaAda"));
  EXPECT_TRUE(menuOn("MenDatSim"));

  user.choose("MenAdaAda");
  act();
  EXPECT_THAT(report(), HasSubstr("Completata"));
  EXPECT_NEAR(session().analysis.par.ParValues[1], 2, 0.02);
  EXPECT_NEAR(session().analysis.par.ParValues[2], 1, 0.05);

  pressOutput(2);
  act();
  EXPECT_TRUE(QGuiApplication::clipboard()->mimeData()->hasImage());
  EXPECT_EQ(QGuiApplication::clipboard()->text().toStdString(), report());

  pressOutput(1);
  user.cancelFile();
  act();
  EXPECT_TRUE(window().isEnabled()) << "nothing is printed";
  pressOutput(1);
  user.file(QString::fromStdString(folder / "rapporto.pdf"));
  pressOutput(0);
  act();
  EXPECT_FALSE(application.output().isVisible());
  QProcess reader;
  reader.start("pdftotext", {"-layout", QString::fromStdString(folder / "rapporto.pdf"), "-"});
  ASSERT_TRUE(reader.waitForFinished());
  const std::string printed = reader.readAllStandardOutput().toStdString();
  EXPECT_THAT(printed, HasSubstr("y = bx+c"));
  EXPECT_THAT(printed, HasSubstr("Completata"));
  EXPECT_THAT(printed, HasSubstr("Liv. Conf."));

  user.choose("MenDatSav");
  user.file("copia");
  act();
  const Array<double> before = session().loaded.data.Ypnt;
  readData(folder / "copia.DAT");
  act();
  EXPECT_EQ(panel(1), "Dati: copia.DAT");
  EXPECT_EQ(session().loaded.data.Ypnt, before);
  EXPECT_EQ(session().files.RecentData.RecentCount, 2);
  EXPECT_TRUE(boxes.empty());
  EXPECT_TRUE(exitCodes.empty());
}

TEST_F(ScenarioTest, AFunctionFileWithAnErrorAndThenAGoodOne) {
  const std::string good = folder.make("buono.fcn", "A,k\r\nA*EXP(-k*x)\r\ndecadimento\r\n");
  const std::string bad = folder.make("cattivo.fcn", "A\r\nA*(x\r\nerrata\r\n");
  user.choose("MenFunLet");
  user.file(QString::fromStdString(good));
  user.choose("MenSerErr");
  user.choose("MenFunLet");
  user.file(QString::fromStdString(bad));
  act();

  // The report stays readable beside the second, empty window.
  std::vector<QString> captions;
  QString text;
  for (QWidget* shown : QApplication::topLevelWidgets()) {
    if (shown->objectName() != "FrmOut" || !shown->isVisible()) continue;
    captions.push_back(shown->windowTitle());
    text += control<QPlainTextEdit>(shown, "TxtOut")->toPlainText();
  }
  EXPECT_THAT(captions,
              testing::UnorderedElementsAre(QString("VOR_KEL: Lettura File Funzioni - Controllo File"),
                                            QString("VOR_KEL: Lettura File Funzioni - ERRORI")));
  EXPECT_TRUE(text.contains("* ERR. Errori nella Compilazione")) << text.toStdString();
  pressOutput(0);
  pressOutput(0);
  act();
  EXPECT_EQ(windowNamed("FrmOut"), nullptr);
  EXPECT_EQ(session().loaded.catalogue.file.entries.size(), 1u) << "the old functions stay";
  EXPECT_EQ(panel(2), QString::fromStdString("Fun.: " + upper("buono.fcn")));

  user.choose("MenFunCar");
  user.press("Loa_Fun", "CmdAcc");
  chooseFunction(0, 5);
  readData(folder.make("d.dat", "t\r\nN\r\n4\r\n0 100 10\r\n1 61 8\r\n2 37 6\r\n3 22 5\r\n"));
  user.choose("MenAdaPar");
  fillForm({"80", ".3", "1", "1"});
  user.choose("MenAdaAda");
  act();
  EXPECT_THAT(report(), HasSubstr("Completata"));
  EXPECT_NEAR(session().analysis.par.ParValues[1], 100, 5);
  EXPECT_NEAR(session().analysis.par.ParValues[2], 0.5, 0.05);
}

TEST_F(ScenarioTest, AFitOfDataWithErrorsInXShowsOneScreen) {
  readData(folder.make("x.dat", "x\r\ny\r\n4 1\r\n0 1 .1 .1\r\n1 3.1 .1 .1\r\n2 4.9 .1 .1\r\n3 7 .1 .1\r\n"));
  chooseFunction(0, 1);
  user.choose("MenAdaPar");
  fillForm({"1", "1", "1", "1"});
  user.choose("MenAdaAda");
  act();
  EXPECT_EQ(session().loaded.data.kXpntErr, kTrue);
  EXPECT_THAT(report(), HasSubstr("Completata"));
  pressOutput(0);
  act();
  EXPECT_EQ(windowNamed("FrmOut"), nullptr);
}

TEST_F(ScenarioTest, EveryCancelLeavesTheMainWindowUsable) {
  readData(folder.make("retta.dat", lineData()));
  chooseFunction(0, 1);
  act();
  for (const char* command :
       {"MenDatLet", "MenDatMod", "MenDatSav", "MenFunLet", "MenFunMod", "MenGraLetFil", "MenGraModFil"}) {
    user.choose(command);
    user.cancelFile();
    act();
    EXPECT_TRUE(window().isEnabled()) << command;
  }
  user.choose("MenDatLet");
  user.file("manca.dat");
  user.press("FrmMsg", "CmdMsg(0)");
  user.at("FileDialog", [](QWidget* shown) {
    EXPECT_EQ(control<QLineEdit>(shown, "fileNameEdit")->text(), "") << "asked again with an empty name";
  });
  user.cancelFile();
  act();
  EXPECT_EQ(session().ErrFlag, kCancelled);
  user.choose("MenDatLet");
  user.file("manca.dat");
  user.press("FrmMsg", "CmdMsg(1)");
  act();
  EXPECT_EQ(session().ErrFlag, kTrue);
  for (const char* command : {"MenAdaPar", "MenSerPro"}) {
    user.choose(command);
    user.press("InpFrm", "cmdRin");
    act();
    EXPECT_TRUE(window().isEnabled()) << command;
  }
  EXPECT_EQ(session().ErrFlag, 0);
  user.choose("MenFunSel");
  user.close("Sel_Fun");
  act();
  EXPECT_TRUE(window().isEnabled());
  user.choose("MenFunLet");
  user.file(QString::fromStdString(folder.make("f.fcn", "A\r\nA*x\r\nretta\r\n")));
  user.choose("MenFunCar");
  user.press("Loa_Fun", "CmdRin");
  act();
  EXPECT_TRUE(window().isEnabled());
  user.choose("MenAdaPar");
  fillForm({"1", "1", "1", "1"});
  for (const char* command : {"MenDatTra", "MenDatSim"}) {
    user.choose(command);
    user.press("InpFrm", "cmdRin");
    act();
    EXPECT_TRUE(window().isEnabled()) << command;
  }
  for (const char* command : {"MenSerImpDir", "MenSerImpGra"}) {
    chooseOnly(command);
    const char* button = command == std::string("MenSerImpDir") ? "CmdWrkDir(0)" : "CmdImpGra(0)";
    QTest::mouseClick(control<QPushButton>(&window(), button), Qt::LeftButton);
    EXPECT_TRUE(menuOn("MenDat")) << command;
  }
  EXPECT_EQ(panel(1), "Dati: retta.dat");
  EXPECT_EQ(panel(4), "Fun.Att.: SI");
  EXPECT_TRUE(exitCodes.empty());
}

TEST_F(ScenarioTest, SavingOverAFileAsksFirst) {
  readData(folder.make("retta.dat", lineData()));
  const QString there = QString::fromStdString(folder.make("c.dat", "vecchio"));
  std::vector<QString> asked;
  const auto save = [&](const char* button) {
    user.choose("MenDatSav");
    user.file(there);
    user.at("FrmMsg", [&asked, button](QWidget* shown) {
      asked.push_back(shown->windowTitle() + ": " + shown->accessibleDescription());
      QTest::mouseClick(control<QPushButton>(shown, button), Qt::LeftButton);
    });
  };
  save("CmdMsg(2)");
  act();
  EXPECT_EQ(folder.bytesOf("c.dat"), "vecchio") << "continue stops";
  save("CmdMsg(1)");
  user.cancelFile();
  act();
  EXPECT_EQ(folder.bytesOf("c.dat"), "vecchio") << "no asks for another name";
  save("CmdMsg(0)");
  act();
  EXPECT_EQ(folder.bytesOf("c.dat").substr(0, 9), "x\r\ny\r\n 9\r");
  EXPECT_THAT(
      asked, testing::Each(QString("VOR_KEL: Salva con Nome File Dati: FILE  gia` Esistente: Sovrascrivo?")));
  EXPECT_TRUE(window().isEnabled());
  EXPECT_EQ(panel(1), "Dati: retta.dat");
}

TEST_F(ScenarioTest, ADataFileWithErrorsIsToldInAMessageOrAList) {
  readData(folder.make("retta.dat", lineData()));
  const std::string bad = folder.make("errori.dat", "x\r\ny\r\n3\r\n0 uno .1\r\n1 3 .1\r\n2 5\r\n4 9 .1\r\n");
  readData(bad);
  user.at("FrmMsg", [&bad](QWidget* shown) {
    EXPECT_EQ(shown->windowTitle(), "VOR_KEL: Lettura File Dati");
    EXPECT_EQ(shown->accessibleDescription().toStdString(),
              "Errori nella Lettura del File Dati: " + bad + "!");
    EXPECT_EQ(control<QPushButton>(shown, "CmdMsg(0)")->text(), "&Continua");
    QTest::keyClick(shown->focusWidget(), Qt::Key_Return);
  });
  chooseOnly("MenSerErr");
  readData(bad);
  act();
  EXPECT_EQ(application.output().windowTitle(), "VOR_KEL: Lettura File Dati - ERRORI");
  EXPECT_EQ(control<QPlainTextEdit>(&application.output(), "TxtOut")->toPlainText(),
            "***ERR. Linea 4; Dato 2: uno\n   Dato NON numerico\n"
            "***ERR. Linea 6: 2 5\n   le linee Dati DEVONO contenere  3 dati.\n");
  pressOutput(0);
  act();
  EXPECT_EQ(panel(1), "Dati: retta.dat") << "the old data stay";
  EXPECT_EQ(session().loaded.data.NumPnt, 9);

  readData(folder.make("sette.dat", "x\r\ny\r\n7\r\n0 1 .1\r\n1 3 .1\r\n2 5 .1\r\n"));
  user.at("FrmMsg", [](QWidget* shown) {
    EXPECT_EQ(shown->accessibleDescription(), "Numero Dati Dichiarati Diverso da Numero Dati Trovati!");
    QTest::keyClick(shown->focusWidget(), Qt::Key_Return);
  });
  act();
  EXPECT_EQ(panel(1), "Dati: sette.dat");
  EXPECT_EQ(session().loaded.data.NumPnt, 3);
}

TEST_F(ScenarioTest, AFitWithoutWhatItNeedsIsRefused) {
  QStringList titles;
  const auto refusedFit = [&] {
    user.choose("MenAdaAda");
    user.at("PlainBox", [&](QWidget* box) {
      titles << box->windowTitle();
      boxes.push_back(qobject_cast<QMessageBox*>(box)->text());
      QTest::keyClick(box, Qt::Key_Return);
    });
  };
  chooseFunction(0, 1);
  user.choose("MenAdaPar");
  fillForm({"1", "1", "1", "1"});
  refusedFit();
  readData(folder.make("retta.dat", lineData()));
  user.choose("MenAdaPar");
  fillForm({"1", "1", "0", "0"});
  refusedFit();
  act();
  EXPECT_EQ(titles, (QStringList{"ERRORE !", "ERRORE !"}));
  EXPECT_EQ(boxes, (std::vector<QString>{"Dati NON Definiti!  <*> per Continuare",
                                         "Parametri NON Definiti!  <*> per Continuare"}));
  EXPECT_TRUE(window().isEnabled());
}

TEST_F(ScenarioTest, AfterAFitTheFormShowsTheErrorsInTheRightColumn) {
  readData(folder.make("retta.dat", lineData()));
  chooseFunction(0, 1);
  user.choose("MenAdaPar");
  fillForm({"1", "0", "1", "0"});
  user.choose("MenAdaAda");
  pressOutput(0);
  user.choose("MenAdaPar");
  user.at("InpFrm", [this](QWidget* form) {
    auto* box = control<QLineEdit>(form, "txtGet");
    EXPECT_EQ(box->text().toStdString(), FormatCompact(session().analysis.par.ParValues[1]));
    for (int i = 0; i < 2; ++i) QTest::keyClick(box, Qt::Key_Down);
    EXPECT_EQ(box->text().toStdString(), FormatCompact(session().analysis.par.ParDeltas[1]));
    QTest::keyClick(box, Qt::Key_Down);
    EXPECT_EQ(box->text(), "0") << "a constant parameter";
  });
  user.press("InpFrm", "cmdEse");
  act();
  EXPECT_GT(session().analysis.par.ParDeltas[1], 0);
  EXPECT_EQ(session().analysis.par.FreeCount, 1) << "free as before";
}

TEST_F(ScenarioTest, RecentFilesAreReadFromTheirMenu) {
  for (const char* name : {"a.dat", "b.dat"}) readData(folder.make(name, lineData()));
  act();
  EXPECT_EQ(control<QAction>(&window(), "MenDatOld(0)")->text().toStdString(), "&1 " + (folder / "b.dat"));
  EXPECT_EQ(control<QAction>(&window(), "MenDatOld(1)")->text().toStdString(), "&2 " + (folder / "a.dat"));
  EXPECT_FALSE(control<QAction>(&window(), "MenDatOld(2)")->isVisible());
  chooseOnly("MenDatOld(1)");
  EXPECT_EQ(panel(1), "Dati: a.dat");

  for (const char* name : {"a.gra", "b.gra"}) {
    user.choose("MenGraLetFil");
    user.file(QString::fromStdString(folder.make(name, "%\r\n")));
  }
  chooseOnly("MenGraOld(1)");
  EXPECT_EQ(panel(3), "Gra.: a.gra");
  EXPECT_EQ(session().files.RecentGra.pick, 2);
  EXPECT_TRUE(menuOn("MenGraVisFil"));

  user.choose("MenFunLet");
  user.file(QString::fromStdString(folder.make("a.fcn", "A\r\nA*x\r\nretta\r\n")));
  chooseOnly("MenFunOld(0)");
  EXPECT_EQ(panel(2), "Fun.: A.FCN");
  EXPECT_EQ(session().files.RecentFun.pick, 0);
  EXPECT_EQ(session().files.RecentFun.RecentCount, 2);
}

TEST_F(ScenarioTest, TheKeyboardAloneIsEnough) {
  folder.make("retta.dat", lineData());
  const auto menu = [this](std::initializer_list<Qt::Key> keys) {
    const std::vector<Qt::Key> path(keys);
    user.at("Vor_Kel", [path](QWidget* main) {
      QTest::keyClick(main, path[0], Qt::AltModifier);
      for (std::size_t i = 1; i < path.size(); ++i)
        QTest::keyClick(QApplication::activePopupWidget(), path[i]);
    });
  };
  menu({Qt::Key_D, Qt::Key_L});
  user.file("retta.dat");
  menu({Qt::Key_F, Qt::Key_S});
  user.key("Sel_Fun", Qt::Key_Tab);
  user.key("Sel_Fun", Qt::Key_Down);
  user.key("Sel_Fun", Qt::Key_A, Qt::AltModifier);
  menu({Qt::Key_A, Qt::Key_P});
  user.type("InpFrm", "txtGet", "1");
  user.key("InpFrm", Qt::Key_Return);
  user.type("InpFrm", "txtGet", "1");
  user.key("InpFrm", Qt::Key_Down);
  user.type("InpFrm", "txtGet", "1");
  user.key("InpFrm", Qt::Key_Down);
  user.type("InpFrm", "txtGet", "1");
  user.key("InpFrm", Qt::Key_E, Qt::AltModifier);
  menu({Qt::Key_A, Qt::Key_A});
  user.at("FrmOut", [this](QWidget*) { EXPECT_THAT(report(), HasSubstr("Liv. Conf.")); });
  user.key("FrmOut", Qt::Key_C, Qt::AltModifier);
  act();
  EXPECT_TRUE(QTest::qWaitForWindowActive(&window()));
  EXPECT_NEAR(session().analysis.par.ParValues[1], 2, 0.02);
}

}  // namespace
}  // namespace vk
