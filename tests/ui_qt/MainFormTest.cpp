#include <QApplication>
#include <QFileDialog>
#include <QMenu>
#include <QMenuBar>
#include <QProcess>
#include <QRadioButton>
#include <QScreen>
#include <QScrollBar>
#include <QStatusBar>
#include <filesystem>

#include "base/CodePage.h"
#include "ui/qt/widgets/Fonts.h"
#include "ui_qt/Desktop.h"

namespace vk {
namespace {

using testing::ElementsAre;

class MainFormTest : public Desktop {
 protected:
  void SetUp() override { start(); }
  template <class Control>
  Control* at(const QString& name) {
    return control<Control>(&window(), name);
  }
  void click(const QString& name) { QTest::mouseClick(at<QWidget>(name), Qt::LeftButton); }
  void choose(const QString& control) {
    user.choose(control);
    act();
  }
  int visiblePicture() {
    for (int i = 0; i < 3; ++i) {
      if (at<QLabel>(QString("Image1(%1)").arg(i))->isVisible()) return i;
    }
    return -1;
  }
  int windowPicture() { return dynamic_cast<Backdrop*>(window().centralWidget())->picture(); }
};

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
  EXPECT_THAT(names, ElementsAre("Sel_Fun", "Loa_Fun", "FrmOut", "InpFrm", "FrmEdi", "FrmMsg"));
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
    const QString caption = QString::fromStdString(std::string(command.caption));
    if (command.kind == CommandKind::kMenu) {
      EXPECT_EQ(at<QMenu>(name)->title(), caption);
    } else {
      EXPECT_EQ(at<QAction>(name)->text(), caption);
      EXPECT_EQ(at<QAction>(name)->isVisible(), command.visible) << name.toStdString();
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

TEST_F(MainFormTest, APanelStandsBelowTheMenuInTheMiddle) {
  for (const char* name : {"FraDir", "FraGra"}) {
    choose(name == std::string("FraDir") ? "MenSerImpDir" : "MenSerImpGra");
    const auto* frame = at<QFrame>(name);
    EXPECT_TRUE(frame->isVisible());
    EXPECT_EQ(frame->y(), -7) << "100 twips";
    EXPECT_LE(std::abs(frame->geometry().center().x() - frame->parentWidget()->rect().center().x()), 1);
    EXPECT_TRUE(frame->hasFocus());
    for (const char* menu : {"MenDat", "MenFun", "MenGra", "MenAda", "MenSer"}) EXPECT_FALSE(menuOn(menu));
    click(name == std::string("FraDir") ? "CmdWrkDir(0)" : "CmdImpGra(0)");
    EXPECT_FALSE(frame->isVisible());
    EXPECT_EQ(window().windowTitle(), "VOR_KEL");
    EXPECT_TRUE(menuOn("MenDat"));
    EXPECT_FALSE(menuOn("MenAda"));
  }
}

TEST_F(MainFormTest, TheAccessKeysOfAPanelWin) {
  for (const bool function : {false, true}) {
    if (function) chooseFunction(0, 1);
    choose("MenSerImpGra");
    click("OptOri(1)");
    user.key("Vor_Kel", Qt::Key_A, Qt::AltModifier);
    act();
    EXPECT_FALSE(at<QFrame>("FraGra")->isVisible());
    EXPECT_EQ(session().figures.Landscape, kFalse);
    EXPECT_EQ(menuOn("MenAda"), function);
    EXPECT_FALSE(menuOn("MenGraDat")) << "as it was before the panel";
  }
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

TEST_F(MainFormTest, TheDirectoryPanelWorksByItsControls) {
  folder.make("dati/x.dat");
  choose("MenSerImpDir");
  EXPECT_EQ(window().windowTitle(), "VOR_KEL: Selezione Directory di Lavoro");
  const QString here = QString::fromStdString(folder.path());
  EXPECT_EQ(at<QLabel>("LblWrkDir(1)")->text(), " File Dati:\n " + here);

  click("LblWrkDir(1)");
  EXPECT_EQ(at<QLabel>("LblWrkDir(1)")->backgroundRole(), QPalette::Highlight);
  EXPECT_EQ(at<QLabel>("LblWrkDir(0)")->backgroundRole(), QPalette::Window);
  EXPECT_EQ(at<QLabel>("LblWrkDir(1)")->foregroundRole(), QPalette::HighlightedText);
  EXPECT_EQ(window().palette().color(QPalette::HighlightedText), QColor(Qt::white));
  EXPECT_EQ(pixelAt(at<QLabel>("LblWrkDir(1)"), QPoint(3, 3)), window().palette().color(QPalette::Highlight));
  auto* list = at<QListWidget>("Dir1");
  const QListWidgetItem* inside = list->item(list->count() - 1);
  EXPECT_EQ(inside->text().trimmed(), "dati");
  QTest::mouseClick(list->viewport(), Qt::LeftButton, {}, list->visualItemRect(inside).center());
  EXPECT_EQ(at<QLabel>("LblWrkDir(1)")->text(), " File Dati:\n " + here + "/dati");
  EXPECT_EQ(at<QLabel>("LblWrkDir(0)")->text(), " Tutti i File:\n ");
  EXPECT_EQ(session().files.DataDir, folder.path());
  click("CmdWrkDir(1)");
  EXPECT_EQ(session().files.DataDir, folder / "dati");
  EXPECT_EQ(session().files.FunDir, folder.path());
}

TEST_F(MainFormTest, ADoubleClickEntersOneFolderOnly) {
  folder.make("a/b/c/x.dat");
  choose("MenSerImpDir");
  auto* list = at<QListWidget>("Dir1");
  const QPoint place = list->visualItemRect(list->item(list->count() - 1)).center();
  QTest::mouseClick(list->viewport(), Qt::LeftButton, {}, place);
  QTest::mouseDClick(list->viewport(), Qt::LeftButton, {}, place);
  EXPECT_EQ(session().files.WorkDir[0], folder / "a");
  click("CmdWrkDir(0)");
}

TEST_F(MainFormTest, TheFolderListLeadsFromTheRootToTheFolderAndInside) {
  folder.make("a/x.dat");
  folder.make("b/x.dat");
  choose("MenSerImpDir");
  auto* list = at<QListWidget>("Dir1");
  const auto names = [list] {
    QStringList result;
    for (int row = 0; row < list->count(); ++row) result << list->item(row)->text().trimmed();
    return result;
  };
  const QStringList above = QString::fromStdString(folder.path()).mid(1).split('/');
  EXPECT_EQ(names(), QStringList("/") + above + QStringList({"a", "b"}));
  EXPECT_EQ(list->currentRow(), above.size()) << "the present folder";
  const auto clickRow = [list](int row) {
    QTest::mouseClick(list->viewport(), Qt::LeftButton, {}, list->visualItemRect(list->item(row)).center());
  };
  clickRow(static_cast<int>(above.size()) - 1);
  EXPECT_EQ(session().files.WorkDir[0], std::filesystem::path(folder.path()).parent_path().string());
  clickRow(0);
  EXPECT_EQ(session().files.WorkDir[0], "/");
  EXPECT_EQ(names().first(), "/");
  click("CmdWrkDir(0)");
}

TEST_F(MainFormTest, TheFolderListWorksByKeys) {
  folder.make("a/x.dat");
  choose("MenSerImpDir");
  auto* list = at<QListWidget>("Dir1");
  QTest::keyClick(list, Qt::Key_Down);
  QTest::keyClick(list, Qt::Key_Return);
  EXPECT_EQ(session().files.WorkDir[0], folder / "a");
  QTest::keyClick(&window(), Qt::Key_E, Qt::AltModifier);
  EXPECT_EQ(session().files.DataDir, folder / "a");
}

TEST_F(MainFormTest, ADriveIsSelectedByKeysAndOneThatCannotBeReadGivesWay) {
  folder.make("chiave/a/x.dat");
  files.volumes = {"/", folder / "chiave", folder / "rotto"};
  choose("MenSerImpDir");
  auto* drive = at<QComboBox>("Drive1");
  EXPECT_EQ(drive->currentIndex(), 0) << "no drive is told for the row";
  click("LblWrkDir(2)");
  QTest::keyClick(drive, Qt::Key_Down);
  EXPECT_EQ(session().files.WorkDir[2], folder / "chiave");
  EXPECT_EQ(session().files.WorkDir[0], "");
  EXPECT_EQ(at<QListWidget>("Dir1")->item(at<QListWidget>("Dir1")->count() - 1)->text().trimmed(), "a");
  QTest::keyClick(drive, Qt::Key_Down);
  EXPECT_EQ(drive->currentIndex(), 1);
  EXPECT_EQ(session().files.WorkDir[2], folder / "chiave");
  click("LblWrkDir(1)");
  EXPECT_EQ(drive->currentIndex(), 0) << "the drive of the row, then its folder";
  EXPECT_EQ(session().files.WorkDir[1], folder.path());
  click("CmdWrkDir(0)");
}

TEST_F(MainFormTest, ThePickerOpensInTheFoldersThatWereAccepted) {
  folder.make("dati/x.dat");
  const auto pickerFolder = [this](const char* command) {
    QString shown;
    user.choose(command);
    user.at("FileDialog",
            [&](QWidget* dialog) { shown = qobject_cast<QFileDialog*>(dialog)->directory().absolutePath(); });
    user.cancelFile();
    act();
    return shown.toStdString();
  };
  const auto enterData = [this] {
    auto* list = at<QListWidget>("Dir1");
    QTest::mouseClick(list->viewport(), Qt::LeftButton, {},
                      list->visualItemRect(list->item(list->count() - 1)).center());
  };
  choose("MenSerImpDir");
  click("LblWrkDir(3)");
  enterData();
  click("CmdWrkDir(0)");
  EXPECT_EQ(pickerFolder("MenGraLetFil"), folder.path());
  choose("MenSerImpDir");
  EXPECT_EQ(at<QLabel>("LblWrkDir(3)")->text().toStdString(), " File Grafici:\n " + (folder / "dati"));
  EXPECT_EQ(at<QLabel>("LblWrkDir(0)")->text(), " Tutti i File:\n ");
  click("CmdWrkDir(1)");
  EXPECT_EQ(pickerFolder("MenGraLetFil"), folder / "dati");
  EXPECT_EQ(pickerFolder("MenDatLet"), folder.path());
  EXPECT_EQ(pickerFolder("MenFunLet"), folder.path());
}

TEST_F(MainFormTest, TheCalculatorRunsBesideTheProgram) {
  user.choose("MenSerCal");
  answerBox();
  act();
  EXPECT_EQ(boxes.at(0), "Calcolatrice NON Trovata!     <*> per Continuare");
  const std::string program = folder.make("tabulo", "#!/bin/sh\necho via >> \"$(dirname \"$0\")/avvii\"\n");
  std::filesystem::permissions(program, std::filesystem::perms::owner_all);
  for (int i = 0; i < 2; ++i) choose("MenSerCal");
  EXPECT_TRUE(QTest::qWaitFor([this] { return folder.bytesOf("avvii") == "via\nvia\n"; }));
  EXPECT_EQ(boxes.size(), 1u);
  EXPECT_TRUE(window().isEnabled());
}

TEST_F(MainFormTest, OpeningTheDirectoryPanelFiresNoChange) {
  session().files.WorkDir = {"", folder.path(), folder.path(), folder.path()};
  choose("MenSerImpDir");
  EXPECT_EQ(session().files.WorkDir[0], "");
  click("CmdWrkDir(0)");
}

TEST_F(MainFormTest, TheOptionsPanelWorksByItsControls) {
  choose("MenSerImpGra");
  EXPECT_EQ(window().windowTitle(), "VOR_KEL: Impostazioni Grafiche");
  EXPECT_EQ(at<QScrollBar>("VScFct(0)")->minimum(), 5);
  EXPECT_EQ(at<QScrollBar>("VScFct(0)")->maximum(), 20);
  EXPECT_EQ(at<QScrollBar>("VScFct(0)")->value(), 10);
  EXPECT_EQ(at<QLabel>("LblFctVal(0)")->text(), "1.0");
  QTest::keyClick(at<QScrollBar>("VScFct(0)"), Qt::Key_Home);
  EXPECT_EQ(at<QLabel>("LblFctVal(0)")->text(), ".5");
  EXPECT_EQ(session().figures.GraphScale[0], 0.5F);
  click("OptOri(1)");
  click("Image1(0)");
  EXPECT_EQ(visiblePicture(), 1);
  EXPECT_EQ(windowPicture(), 0);
  click("CmdImpGra(1)");
  EXPECT_EQ(windowPicture(), 1);
  EXPECT_EQ(session().figures.Landscape, kFalse);
  EXPECT_EQ(session().figures.GraphScale[0], 0.5F);
}

TEST_F(MainFormTest, ThePictureStepsRound) {
  choose("MenSerImpGra");
  for (int expected : {1, 2, 0}) {
    click(QString("Image1(%1)").arg(visiblePicture()));
    EXPECT_EQ(visiblePicture(), expected);
  }
  QTest::keyClick(at<QLabel>("Image1(0)"), Qt::Key_Space);
  EXPECT_EQ(visiblePicture(), 1);
  click("CmdImpGra(0)");
}

TEST_F(MainFormTest, RinunciaOfTheOptionsPanelPutsAllBack) {
  choose("MenSerImpGra");
  for (int i = 0; i < 4; ++i) QTest::keyClick(at<QScrollBar>(QString("VScFct(%1)").arg(i)), Qt::Key_End);
  click("OptOri(1)");
  click("Image1(0)");
  click("CmdImpGra(0)");
  EXPECT_THAT(session().figures.GraphScale, testing::Each(1.0F));
  EXPECT_EQ(session().figures.Landscape, kTrue);
  EXPECT_EQ(windowPicture(), 0);
  choose("MenSerImpGra");
  EXPECT_EQ(at<QScrollBar>("VScFct(2)")->value(), 10);
  EXPECT_TRUE(at<QRadioButton>("OptOri(0)")->isChecked());
  EXPECT_EQ(visiblePicture(), 0);
  click("CmdImpGra(0)");
}

TEST_F(MainFormTest, NoTextOfThePanelsIsCutOffOrCovered) {
  for (const std::string panel : {"FraGra", "FraDir"}) {
    choose(panel == "FraGra" ? "MenSerImpGra" : "MenSerImpDir");
    QList<QRect> taken;
    for (const auto* button : window().findChildren<QAbstractButton*>()) {
      if (!button->isVisible() || button->text().isEmpty()) continue;
      EXPECT_GE(button->width(), button->fontMetrics().horizontalAdvance(button->text().remove('&')) + 4);
      EXPECT_GE(button->height(), button->fontMetrics().height());
      const QRect place(button->mapTo(&window(), QPoint(0, 0)), button->size());
      for (const QRect& other : taken) EXPECT_FALSE(place.intersects(other)) << button->text().toStdString();
      taken << place;
    }
    auto* frame = at<QFrame>(QString::fromStdString(panel));
    EXPECT_EQ(pixelAt(frame, QPoint(12, 60)), frame->palette().color(QPalette::Window));
    click(panel == "FraGra" ? "CmdImpGra(0)" : "CmdWrkDir(0)");
  }
}

TEST_F(MainFormTest, ALargerWindowKeepsItsPanelInTheMiddle) {
  choose("MenSerImpGra");
  window().resize(window().size() + QSize(120, 80));
  QApplication::processEvents();
  EXPECT_EQ(window().centralWidget()->size(), QSize(870, 580));
  const auto* frame = at<QFrame>("FraGra");
  EXPECT_LE(std::abs(frame->geometry().center().x() - 435), 1);
  EXPECT_EQ(frame->y(), -7);
  click("CmdImpGra(0)");
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
