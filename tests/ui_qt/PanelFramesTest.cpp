#include <QComboBox>
#include <QFileDialog>
#include <QListWidget>
#include <QRadioButton>
#include <QScrollBar>
#include <filesystem>

#include "ui_qt/MainFormFixture.h"

namespace vk {
namespace {

using testing::ElementsAre;

/// The frames of the working directory and of the graphic options.
class PanelFramesTest : public MainFormFixture {};

TEST_F(PanelFramesTest, APanelStandsBelowTheMenuInTheMiddle) {
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

TEST_F(PanelFramesTest, TheAccessKeysOfAPanelWin) {
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

TEST_F(PanelFramesTest, TheDirectoryPanelWorksByItsControls) {
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

TEST_F(PanelFramesTest, ADoubleClickEntersOneFolderOnly) {
  folder.make("a/b/c/x.dat");
  choose("MenSerImpDir");
  auto* list = at<QListWidget>("Dir1");
  const QPoint place = list->visualItemRect(list->item(list->count() - 1)).center();
  QTest::mouseClick(list->viewport(), Qt::LeftButton, {}, place);
  QTest::mouseDClick(list->viewport(), Qt::LeftButton, {}, place);
  EXPECT_EQ(session().files.WorkDir[0], folder / "a");
  click("CmdWrkDir(0)");
}

TEST_F(PanelFramesTest, TheFolderListLeadsFromTheRootToTheFolderAndInside) {
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

TEST_F(PanelFramesTest, TheFolderListWorksByKeys) {
  folder.make("a/x.dat");
  choose("MenSerImpDir");
  auto* list = at<QListWidget>("Dir1");
  QTest::keyClick(list, Qt::Key_Down);
  QTest::keyClick(list, Qt::Key_Return);
  EXPECT_EQ(session().files.WorkDir[0], folder / "a");
  QTest::keyClick(&window(), Qt::Key_E, Qt::AltModifier);
  EXPECT_EQ(session().files.DataDir, folder / "a");
}

TEST_F(PanelFramesTest, ADriveIsSelectedByKeysAndOneThatCannotBeReadGivesWay) {
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

TEST_F(PanelFramesTest, ThePickerOpensInTheFoldersThatWereAccepted) {
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

TEST_F(PanelFramesTest, OpeningTheDirectoryPanelFiresNoChange) {
  session().files.WorkDir = {"", folder.path(), folder.path(), folder.path()};
  choose("MenSerImpDir");
  EXPECT_EQ(session().files.WorkDir[0], "");
  click("CmdWrkDir(0)");
}

TEST_F(PanelFramesTest, TheOptionsPanelWorksByItsControls) {
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

TEST_F(PanelFramesTest, TheWindowPaintsThePictureThatIsChosenInItsSize) {
  const auto painted = [this] { return window().centralWidget()->grab().toImage(); };
  const QSize size = window().size();
  const QImage first = painted();
  window().setBackground(1);
  const QImage second = painted();
  EXPECT_NE(second, first);
  window().resize(size + QSize(50, 20));
  window().setBackground(0);
  EXPECT_EQ(painted().size(), first.size() + QSize(50, 20) * window().devicePixelRatio());
  EXPECT_NE(painted().copy(first.rect()), first);
  window().resize(size);
  EXPECT_EQ(painted(), first);
}

TEST_F(PanelFramesTest, ThePictureStepsRound) {
  choose("MenSerImpGra");
  for (int expected : {1, 2, 0}) {
    click(QString("Image1(%1)").arg(visiblePicture()));
    EXPECT_EQ(visiblePicture(), expected);
  }
  QTest::keyClick(at<QLabel>("Image1(0)"), Qt::Key_Space);
  EXPECT_EQ(visiblePicture(), 1);
  click("CmdImpGra(0)");
}

TEST_F(PanelFramesTest, RinunciaOfTheOptionsPanelPutsAllBack) {
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

TEST_F(PanelFramesTest, NoTextOfThePanelsIsCutOffOrCovered) {
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

TEST_F(PanelFramesTest, ALargerWindowKeepsItsPanelInTheMiddle) {
  choose("MenSerImpGra");
  window().resize(window().size() + QSize(120, 80));
  QApplication::processEvents();
  EXPECT_EQ(window().centralWidget()->size(), QSize(870, 580));
  const auto* frame = at<QFrame>("FraGra");
  EXPECT_LE(std::abs(frame->geometry().center().x() - 435), 1);
  EXPECT_EQ(frame->y(), -7);
  click("CmdImpGra(0)");
}

}  // namespace
}  // namespace vk
