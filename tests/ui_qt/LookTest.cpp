#include <QAccessible>
#include <QComboBox>
#include <QListWidget>
#include <QMenu>
#include <QRadioButton>
#include <QScrollBar>
#include <QStyleOptionSlider>
#include <QToolTip>

#include "ui/qt/widgets/Fonts.h"
#include "ui_qt/Desktop.h"

namespace vk {
namespace {

/// What a user sees of the focus, of scroll bars, long names and fonts.
class LookTest : public Desktop {
 protected:
  void SetUp() override { start(); }

  QString path(const std::string& name) { return QString::fromStdString(folder / name); }
  void openDirectoryPanel() {
    user.choose("MenSerImpDir");
    act();
  }
  void openGraphicPanel() {
    user.choose("MenSerImpGra");
    act();
  }
  /// How many pixels of a control tell that it has the focus.
  int pixelsOfFocus(QWidget* shown) {
    shown->setFocus(Qt::TabFocusReason);
    const QImage with = shown->grab().toImage();
    shown->clearFocus();
    const QImage without = shown->grab().toImage();
    int different = 0;
    for (int y = 0; y < with.height(); ++y) {
      for (int x = 0; x < with.width(); ++x) {
        const int change = with.pixelColor(x, y).lightness() - without.pixelColor(x, y).lightness();
        if (std::abs(change) > 40) ++different;
      }
    }
    return different;
  }
};

TEST_F(LookTest, TheFocusIsSeenInListsScrollBarsAndRadioButtons) {
  constexpr int kEnough = 60;  // pixels
  openDirectoryPanel();
  EXPECT_GT(pixelsOfFocus(control<QListWidget>(&window(), "Dir1")), kEnough);
  QTest::mouseClick(control<QPushButton>(&window(), "CmdWrkDir(0)"), Qt::LeftButton);
  openGraphicPanel();
  EXPECT_GT(pixelsOfFocus(control<QScrollBar>(&window(), "VScFct(0)")), kEnough);
  EXPECT_GT(pixelsOfFocus(control<QRadioButton>(&window(), "OptOri(1)")), kEnough);
  EXPECT_GT(pixelsOfFocus(control<QLabel>(&window(), "Image1(0)")), kEnough);
}

TEST_F(LookTest, AnOpenedPanelShowsTheFocusInItsFirstControl) {
  const auto seen = [this](const char* name) {
    auto* first = control<QWidget>(&window(), name);
    ASSERT_TRUE(first->hasFocus()) << name;
    const QImage opened = first->grab().toImage();
    first->clearFocus();
    EXPECT_NE(opened, first->grab().toImage()) << name;
  };
  openDirectoryPanel();
  seen("Drive1");
  QTest::mouseClick(control<QPushButton>(&window(), "CmdWrkDir(0)"), Qt::LeftButton);
  openGraphicPanel();
  seen("Image1(0)");
}

TEST_F(LookTest, TheListThatTheKeysGoToStandsOut) {
  user.choose("MenFunSel");
  user.at("Sel_Fun",
          [this](QWidget* form) { EXPECT_GT(pixelsOfFocus(control<QListWidget>(form, "LstInn")), 60); });
  user.press("Sel_Fun", "CmdRin");
  act();
}

TEST_F(LookTest, AScrollBarShowsWhichPartIsTheThumb) {
  openGraphicPanel();
  auto* bar = control<QScrollBar>(&window(), "VScFct(0)");
  QStyleOptionSlider option;
  option.initFrom(bar);
  option.orientation = Qt::Vertical;
  option.minimum = bar->minimum();
  option.maximum = bar->maximum();
  option.sliderPosition = option.sliderValue = bar->value();
  option.pageStep = bar->pageStep();
  option.upsideDown = bar->invertedAppearance();
  const auto lightness = [&](QStyle::SubControl part) {
    const QRect place = bar->style()->subControlRect(QStyle::CC_ScrollBar, &option, part, bar);
    return pixelAt(bar, place.center()).lightness();
  };
  const int thumb = lightness(QStyle::SC_ScrollBarSlider);
  EXPECT_LT(thumb, lightness(QStyle::SC_ScrollBarAddPage) - 40);
  EXPECT_LT(thumb, lightness(QStyle::SC_ScrollBarSubPage) - 40);
}

TEST_F(LookTest, FolderRowsAreOfOneHeightAndOfTheWidthOfTheList) {
  for (const char* name : {"dati", "\xE6\xB8\xAC\xE5\xAE\x9A", "\xE0\xA4\xA4\xE0\xA5\x8D\xE0\xA4\xB0"}) {
    folder.make(std::string(name) + "/x");
  }
  folder.make("una cartella dal nome davvero molto lungo che non trova posto nella lista/x");
  openDirectoryPanel();
  auto* list = control<QListWidget>(&window(), "Dir1");
  ASSERT_GE(list->count(), 6);
  const int height = list->visualItemRect(list->item(0)).height();
  for (int row = 0; row < list->count(); ++row) {
    EXPECT_EQ(list->visualItemRect(list->item(row)).height(), height) << row;
    EXPECT_LE(list->visualItemRect(list->item(row)).width(), list->viewport()->width()) << row;
  }
  EXPECT_EQ(list->textElideMode(), Qt::ElideMiddle);
  const QListWidgetItem* last = list->item(list->count() - 3);
  EXPECT_TRUE(last->toolTip().startsWith(QString::fromStdString(folder.path())));
}

TEST_F(LookTest, TheDriveListKeepsItsWidthWithLongNames) {
  openDirectoryPanel();
  const int width = control<QComboBox>(&window(), "Drive1")->width();
  QTest::mouseClick(control<QPushButton>(&window(), "CmdWrkDir(0)"), Qt::LeftButton);
  files.volumes.emplace_back(folder /
                             "un volume dal nome davvero molto lungo che non trova posto nella lista");
  openDirectoryPanel();
  auto* list = control<QComboBox>(&window(), "Drive1");
  EXPECT_EQ(list->width(), width);
  EXPECT_EQ(list->itemData(1, Qt::ToolTipRole).toString(), list->itemText(1));
}

TEST_F(LookTest, EveryButtonOfAPanelCanBeReachedInTheSmallestWindow) {
  for (const auto& [open, buttons] :
       {std::pair{"MenSerImpDir", "CmdWrkDir"}, {"MenSerImpGra", "CmdImpGra"}}) {
    window().resize(10, 10);
    user.choose(open);
    act();
    for (int i = 0; i < 2; ++i) {
      auto* button = control<QPushButton>(&window(), QString("%1(%2)").arg(buttons).arg(i));
      const QRect place(button->mapTo(&window(), QPoint(0, 0)), button->size());
      EXPECT_TRUE(window().rect().contains(place)) << button->objectName().toStdString();
      EXPECT_TRUE(button->visibleRegion().boundingRect() == button->rect());
    }
    QTest::mouseClick(control<QPushButton>(&window(), QString("%1(0)").arg(buttons)), Qt::LeftButton);
  }
}

TEST_F(LookTest, ALongNameInTheStatusBarIsShortenedAndToldWhole) {
  const std::string name = std::string(200, 'n') + ".dat";
  folder.make(name, lineData());
  const int width = window().width();
  user.choose("MenDatLet");
  user.file(path(name));
  act();
  EXPECT_EQ(window().width(), width);
  EXPECT_LE(window().minimumSizeHint().width(), width);
  auto* panel = control<QLabel>(&window(), "StatusBar1(1)");
  EXPECT_LT(panel->width(), panel->sizeHint().width());
  EXPECT_EQ(panel->toolTip(), QString::fromStdString("Dati: " + name));
  for (int i = 2; i <= 5; ++i) {
    auto* shortOne = control<QLabel>(&window(), QString("StatusBar1(%1)").arg(i));
    EXPECT_GE(shortOne->width(), shortOne->sizeHint().width()) << i;
    EXPECT_LE(shortOne->geometry().right(), window().width()) << i;
  }
}

TEST_F(LookTest, ALongRecentEntryIsShortenedInTheMiddleAndToldWhole) {
  const std::string name = "cartella/" + std::string(100, 'n') + "/fine & resto.dat";
  folder.make(name, lineData());
  user.choose("MenDatLet");
  user.file(path(name));
  act();
  const auto* entry = control<QAction>(&window(), "MenDatOld(0)");
  EXPECT_EQ(entry->text().size(), 61) << "one of them an access sign that stands doubled";
  EXPECT_TRUE(entry->text().startsWith("&1 /"));
  EXPECT_TRUE(entry->text().contains(QChar(0x2026)));
  EXPECT_TRUE(entry->text().endsWith("/fine && resto.dat"));
  EXPECT_EQ(entry->toolTip(), "1 " + path(name));
  auto* menu = window().findChild<QMenu*>("MenDat");
  emit menu->hovered(const_cast<QAction*>(entry));
  EXPECT_TRUE(menu->toolTipsVisible());
  emit menu->hovered(control<QAction>(&window(), "MenDatLet"));
  EXPECT_FALSE(menu->toolTipsVisible());
}

TEST_F(LookTest, WindowsThatAskAreDialogsForAssistiveTools) {
  const auto look = [](QWidget* shown) {
    EXPECT_EQ(QAccessible::queryAccessibleInterface(shown)->role(), QAccessible::Dialog)
        << shown->objectName().toStdString();
  };
  user.choose("MenFunSel");
  user.at("Sel_Fun", look);
  user.press("Sel_Fun", "CmdAcc");
  user.choose("MenAdaPar");
  user.at("InpFrm", look);
  user.press("InpFrm", "cmdRin");
  user.choose("MenDatLet");
  user.at("FileDialog", look);
  user.file("manca.dat");
  user.at("FrmMsg", look);
  user.press("FrmMsg", "CmdMsg(1)");
  act();
  application.output().OutShow({Form::kMain, 5, 20, kReportButtons, "Titolo", ""});
  user.at("FrmOut", look);
  act();
}

TEST_F(LookTest, FontsHaveTheirSizes) {
  const auto is = [](const QWidget* shown, const char* face, int points) {
    EXPECT_EQ(shown->font().family(), face) << shown->objectName().toStdString();
    EXPECT_EQ(shown->font().pointSize(), points) << shown->objectName().toStdString();
  };
  is(&window(), "Liberation Mono", 10);
  is(control<QLabel>(&window(), "StatusBar1(1)"), "Liberation Sans", 9);
  user.choose("MenFunSel");
  user.at("Sel_Fun", [&](QWidget* form) {
    is(form, "Liberation Sans", 9);
    is(control<QWidget>(form, "LstOut"), "Liberation Mono", 10);
    is(control<QWidget>(form, "LstInn"), "Liberation Mono", 10);
    is(control<QWidget>(form, "TxtFun"), "Liberation Mono", 10);
    is(control<QWidget>(form, "CmdAcc"), "Liberation Sans", 9);
  });
  user.press("Sel_Fun", "CmdAcc");
  user.choose("MenAdaPar");
  user.at("InpFrm", [&](QWidget* form) { is(control<QWidget>(form, "txtGet"), "Liberation Mono", 10); });
  user.press("InpFrm", "cmdRin");
  act();
}

}  // namespace
}  // namespace vk
