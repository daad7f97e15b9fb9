#include <QApplication>
#include <QMenu>
#include <QMenuBar>
#include <QProcess>
#include <QScreen>
#include <QStatusBar>
#include <filesystem>

#include "base/CodePage.h"
#include "ui/qt/widgets/Fonts.h"
#include "ui_qt/MainFormFixture.h"

namespace vk {
namespace {

using testing::ElementsAre;

class MainFormTest : public MainFormFixture {};

class FirstMomentTest : public Desktop {};

TEST_F(FirstMomentTest, TheWelcomeStandsBeforeAWindowWithTheTextsOfTheStart) {
  user.at("FrmMsg", [this](QWidget* welcome) {
    EXPECT_TRUE(window().isVisible());
    EXPECT_EQ(welcome->windowTitle(), "VOR_KEL Versione Windows 98");
    EXPECT_EQ(control<QPushButton>(welcome, "CmdMsg(0)")->text(), "&Continua");
    EXPECT_FALSE(control<QPushButton>(welcome, "CmdMsg(1)")->isVisible());
    EXPECT_EQ(window().windowTitle(), "VOR_KEL");
    const QStringList texts{"Dati: Nessuno ", "Fun.: Nessuno ", "Grafici: Nessuno ", "Fun.Att.: NO ",
                            "Par.Var.: NO "};
    for (int i = 1; i <= 5; ++i) EXPECT_EQ(panel(i), texts[i - 1]);
    EXPECT_TRUE(session().loaded.catalogue.inner.empty());
    QTest::keyClick(welcome->focusWidget(), Qt::Key_Return);
  });
  application.StartUp();
  EXPECT_EQ(panel(3), "Gra.: Nessuno");
  EXPECT_EQ(session().loaded.catalogue.inner.size(), 5u);
}

TEST_F(MainFormTest, TheFormsAreMadeInTheirOrder) {
  std::vector<std::string> names;
  for (const QWidget* form : application.forms()) names.push_back(form->objectName().toStdString());
  EXPECT_THAT(names, ElementsAre("Sel_Fun", "Loa_Fun", "FrmOut", "InpFrm", "FrmEdi", "FrmImp", "FrmMsg"));
}

TEST_F(MainFormTest, TheClientAreaHasItsSizeAndTheWindowStandsInTheMiddle) {
  EXPECT_EQ(window().centralWidget()->size(), QSize(750, 500));
  const QPoint off = window().geometry().center() - window().screen()->availableGeometry().center();
  EXPECT_LE(std::abs(off.x()), 2);
  EXPECT_LE(std::abs(off.y()), 2);
}

TEST_F(MainFormTest, TheMenusAreThoseOfTheTable) {
  QStringList top;
  for (const QAction* action : window().menuBar()->actions()) top << action->text();
  EXPECT_EQ(top, (QStringList{"&Dati", "&Funzioni", "&Grafici", "&Adattamento", "&Servizi"}));
  for (const Command& command : commandTable()) {
    const QString name = QString::fromStdString(std::string(command.name));
    const QString caption = QString::fromStdString(std::string(command.caption.bytes()));
    if (command.kind == CommandKind::kMenu) {
      EXPECT_EQ(at<QMenu>(name)->title(), caption);
    } else {
      EXPECT_EQ(at<QAction>(name)->text(), caption);
      EXPECT_EQ(at<QAction>(name)->isVisible(), command.visible()) << name.toStdString();
    }
  }
}

TEST_F(MainFormTest, RightAfterTheStartOnlyWhatIsThereIsOn) {
  for (const char* name :
       {"MenDatSav", "MenDatTra", "MenDatSim", "MenGraDat", "MenGraFun", "MenGraDif", "MenAda", "MenAdaPar",
        "MenAdaAda", "MenSerPro", "MenFunCar", "MenGraVisFil", "MenGraPriFil"}) {
    EXPECT_FALSE(menuOn(name)) << name;
  }
  for (const char* name :
       {"MenDat", "MenDatLet", "MenDatMod", "MenFun", "MenFunSel", "MenFunLet", "MenFunMod", "MenGra",
        "MenGraLetFil", "MenGraModFil", "MenSer", "MenSerCal", "MenSerOpz", "MenSerErr"}) {
    EXPECT_TRUE(menuOn(name)) << name;
  }
  EXPECT_FALSE(at<QAction>("MenSerErr")->isChecked());
}

TEST_F(MainFormTest, ThePanelsHaveTheSizeOfTheirTexts) {
  EXPECT_EQ(panel(1), "Dati: Nessuno");
  EXPECT_EQ(panel(3), "Gra.: Nessuno");
  window().setPanel(1, "Dati: un-nome-di-file-molto-lungo.dat");
  QApplication::processEvents();
  const auto* label = at<QLabel>("StatusBar1(1)");
  EXPECT_GE(label->width(), label->fontMetrics().horizontalAdvance(label->text()));
}

TEST_F(MainFormTest, TheMarkOfTheErrorOptionFollowsTheSession) {
  choose("MenSerErr");
  EXPECT_TRUE(at<QAction>("MenSerErr")->isChecked());
  EXPECT_EQ(session().settings.ShowErrors, kTrue);
  choose("MenSerErr");
  EXPECT_FALSE(at<QAction>("MenSerErr")->isChecked());
  EXPECT_EQ(session().settings.ShowErrors, kFalse);
}

TEST_F(MainFormTest, AnAmpersandOfAPathIsShown) {
  window().setMenuCaption(Control::MenDatOld0, "&1 /a&&b.dat");
  window().setMenuVisible(Control::MenDatOld0, true);
  EXPECT_EQ(at<QAction>("MenDatOld(0)")->text(), "&1 /a&&b.dat");
}

TEST_F(MainFormTest, AGreyTopMenuTakesNoKeyFocus) {
  user.at("Vor_Kel", [this](QWidget* main) {
    QTest::keyClick(main, Qt::Key_A, Qt::AltModifier);
    EXPECT_FALSE(window().menuBar()->hasFocus());
    EXPECT_EQ(window().menuBar()->activeAction(), nullptr);
    EXPECT_EQ(QApplication::activePopupWidget(), nullptr);
    QTest::keyClick(main, Qt::Key_G, Qt::AltModifier);
    ASSERT_EQ(QApplication::activePopupWidget(), at<QMenu>("MenGra"));
    QTest::keyClick(at<QMenu>("MenGra"), Qt::Key_Right);
    EXPECT_EQ(QApplication::activePopupWidget(), at<QMenu>("MenSer")) << "the arrows pass over it";
    while (QWidget* popup = QApplication::activePopupWidget()) popup->close();
  });
  act();
}

TEST_F(MainFormTest, TheCalculatorRunsBesideTheProgram) {
  user.choose("MenSerCal");
  answerBox();
  act();
  EXPECT_EQ(boxes.at(0), "Calcolatrice NON Trovata!     <*> per Continuare");
  const std::string program = folder.make("tabulo", "#!/bin/sh\necho via >> \"$(dirname \"$0\")/avvii\"\n");
  std::filesystem::permissions(program, std::filesystem::perms::owner_all);
  folder.make("avvii");  // it is read before the program beside ours has written
  for (int i = 0; i < 2; ++i) choose("MenSerCal");
  EXPECT_TRUE(QTest::qWaitFor([this] { return folder.bytesOf("avvii") == "via\nvia\n"; }));
  EXPECT_EQ(boxes.size(), 1u);
  EXPECT_TRUE(window().isEnabled());
}

TEST_F(MainFormTest, ClosingUnloadsEveryFormAndAsksNothing) {
  application.output().OutShow({Form::kMain, 5, 20, kReportButtons, "Titolo", ""});
  window().close();
  EXPECT_THAT(exitCodes, ElementsAre(0));
  for (const QWidget* form : application.forms()) EXPECT_FALSE(form->isVisible());
  EXPECT_EQ(folder.count(), 0) << "nothing is written";
}

TEST_F(MainFormTest, AShutWindowCannotBeClosed) {
  window().shut(Form::kEditor);
  window().close();
  EXPECT_TRUE(window().isVisible());
  EXPECT_TRUE(exitCodes.empty());
  window().release(Form::kEditor);
}

TEST_F(MainFormTest, AnUnguardedErrorIsToldAndEndsTheCommand) {
  folder.make("a.dat", lineData());
  std::filesystem::create_directory(folder / "cartella.dat");
  session().files.RecentData.paths[1] = folder / "manca/a.dat";
  session().files.RecentData.pick = 1;
  user.choose("MenDatLet");
  answerBox();
  act();
  ASSERT_EQ(boxes.size(), 1u);
  EXPECT_EQ(boxes[0], QString("Errore di run-time '76':\n\nImpossibile trovare il percorso"));
  EXPECT_THAT(exitCodes, testing::IsEmpty());
  EXPECT_TRUE(window().isEnabled());
  user.choose("MenDatLet");
  user.file("a.dat");
  act();
  EXPECT_EQ(panel(1), "Dati: a.dat") << "the entry that failed is not picked any more";
}

TEST_F(MainFormTest, AGraphicFileThatEndsTooSoonLeavesNoFigureAndNothingToPrint) {
  user.choose("MenGraLetFil");
  user.file(QString::fromStdString(folder.make("g.gra", "\\SCRIVI(5,5,0,0,20,prima)\r\n\\SIMBOLO(3,4)&")));
  for (const char* command : {"MenGraVisFil", "MenGraPriFil"}) {
    user.choose(command);
    answerBox();
    act();
    EXPECT_EQ(windowNamed("GralFrm"), nullptr) << command;
  }
  EXPECT_THAT(boxes, testing::Each(QString("Errore di run-time '62':\n\nInput oltre la fine del file")));
  folder.make("g.gra", "\\SCRIVI(5,5,0,0,20,dopo)\r\n");
  user.choose("MenGraPriFil");
  user.file(QString::fromStdString(folder / "figura.pdf"));
  act();
  QProcess reader;
  reader.start("pdftotext", {QString::fromStdString(folder / "figura.pdf"), "-"});
  ASSERT_TRUE(reader.waitForFinished());
  EXPECT_EQ(reader.readAllStandardOutput().trimmed(), "dopo");
  EXPECT_TRUE(window().isEnabled());
}

TEST_F(MainFormTest, AFullDiskIsToldWhileAReportIsPrinted) {
  files.fullFor = 1;
  application.output().OutShow({Form::kMain, 5, 20, kReportButtons, "Titolo", ""});
  user.press("FrmOut", "CmdOut(1)");
  user.file(QString::fromStdString(folder / "foglio.pdf"));
  QString told;
  user.at("FrmMsg", [&](QWidget* dialog) { told = dialog->accessibleDescription(); });
  user.press("FrmMsg", "CmdMsg(1)");
  act();
  EXPECT_TRUE(told.endsWith("foglio.pdf NON e` stato Scritto: Disco Pieno!")) << told.toStdString();
  EXPECT_EQ(folder.count(), 0);
  EXPECT_THAT(exitCodes, testing::IsEmpty());
  EXPECT_TRUE(application.output().isVisible());
}

TEST_F(MainFormTest, EveryWindowHasANameForAssistiveTools) {
  application.output().OutShow({Form::kMain, 5, 20, kReportButtons, "Titolo", ""});
  chooseFunction(0, 1);
  act();
  EXPECT_EQ(window().accessibleName(), "VOR_KEL");
  QStringList unnamed;
  const auto look = [&unnamed](QWidget* shown) {
    if (shown->accessibleName().isEmpty()) unnamed << shown->objectName();
  };
  for (const char* name : {"Vor_Kel", "FrmOut"}) user.at(name, look);
  user.choose("MenFunLet");
  user.file(QString::fromStdString(folder.make("f.fcn", "A\r\nA*x\r\nretta\r\n")));
  user.choose("MenFunCar");
  user.at("Loa_Fun", look);
  user.press("Loa_Fun", "CmdRin");
  user.choose("MenDatLet");
  user.at("FileDialog", look);
  user.file("manca.dat");
  user.at("FrmMsg", look);
  user.press("FrmMsg", "CmdMsg(1)");
  user.choose("MenAdaPar");
  user.at("InpFrm", look);
  user.press("InpFrm", "cmdRin");
  user.choose("MenFunSel");
  user.at("Sel_Fun", look);
  user.press("Sel_Fun", "CmdRin");
  user.choose("MenSerCal");
  user.at("PlainBox", look);
  answerBox();
  act();
  EXPECT_EQ(unnamed, QStringList());
}

TEST_F(MainFormTest, TheFontsHaveEverySignOfCodePage437) {
  for (const QFont& font :
       {listFont(), formFont(), formButtonFont(), toolkitFont(session().settings.FontEdit)}) {
    const QFontMetrics metrics(font);
    EXPECT_TRUE(QFontInfo(font).fixedPitch()) << font.family().toStdString();
    for (int code = 32; code < 256; ++code) {
      if (code == 127) continue;
      const char32_t sign = toUnicode(static_cast<char>(code), CodePage::kCp437);
      EXPECT_TRUE(metrics.inFontUcs4(sign)) << code;
      EXPECT_EQ(metrics.horizontalAdvance(QString::fromUcs4(&sign, 1)), metrics.horizontalAdvance('A'))
          << code;
    }
  }
}

}  // namespace
}  // namespace vk
