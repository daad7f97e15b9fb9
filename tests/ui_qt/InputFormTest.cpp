#include "ui/qt/forms/InputForm.h"

#include <QApplication>

#include "base/RuntimeError.h"
#include "doubles/Doubles.h"
#include "doubles/ScriptedDialogs.h"
#include "session/Session.h"
#include "ui/qt/ports/QtDialogs.h"
#include "ui/qt/widgets/Twips.h"
#include "ui_qt/User.h"

namespace vk {
namespace {

using testing::ElementsAre;

class InputFormTest : public testing::Test {
 protected:
  struct Field {
    std::string value, kind;
    int width;
  };

  void SetUp() override {
    owner.resize(700, 500);
    owner.move(60, 40);
    bringToFront(&owner);
    windows.add(Form::kMain, &owner);
    setFields({{"1", "#Number", -8}, {"due", "#String", 8}, {"x", "#Function@y@x@ @ @", 12}});
    form.setAction([this](int number) {
      actions.push_back(number);
      visibleInAction = form.isVisible();
    });
  }

  void setFields(const std::vector<Field>& fields) {
    const int n = static_cast<int>(fields.size());
    tables = InputTables();
    tables.caption = "VOR_KEL: Parametri Iniziali";
    tables.InpRows = 10;
    tables.InpCols = 44;
    tables.InpAction = kStoreParameters;
    tables.InpFieldCount = n;
    tables.InpFrameCount = 1;
    tables.InpFrames.dim(1);
    tables.InpFrames[1] = {1, 1, 10, 44, 3};
    tables.InpValues.dim(n);
    tables.InpFieldKinds.dim(n);
    tables.InpFieldPos.dim(n);
    tables.InpLabels.dim(n);
    tables.InpLabelPos.dim(n);
    for (int i = 1; i <= n; ++i) {
      const Field& field = fields[static_cast<std::size_t>(i) - 1];
      tables.InpValues[i] = field.value;
      tables.InpFieldKinds[i] = field.kind;
      tables.InpFieldPos[i] = {3 + i, 10, field.width};
      tables.InpLabels[i] =
          "\xEB"
          "a";
      tables.InpLabelPos[i] = {3 + i, 2, 5};
    }
  }
  void show() { form.InpShow(tables, Form::kMain); }
  QLineEdit* box() { return control<QLineEdit>(&form, "txtGet"); }
  QWidget* field(int i) { return control<QWidget>(&form, QString("lblVal(%1)").arg(i)); }
  /// A step while the form is open.
  void then(std::function<void()> step) {
    user.at("InpFrm", [step](QWidget*) { step(); });
  }
  void replace(const QString& text) {
    box()->selectAll();
    typeText(box(), text);
  }
  void giveUp() { user.press("InpFrm", "cmdRin"); }
  void execute() { user.press("InpFrm", "cmdEse"); }

  QWidget owner;
  RecordingMainWindow window;
  Windows windows;
  Session session;
  FrmMsg message{windows, session.settings.FontLabel};
  QtDialogs dialogs{windows, message};
  RecordingSound sound;
  bool compiles = true;
  bool breaks = false;
  InpMod engine{session.ErrFlag, dialogs, sound, [this](const std::string&) {
                  if (breaks) throw RuntimeError(kOverflow);
                  return compiles;
                }};
  InputTables tables;
  std::vector<int> actions;
  bool visibleInAction = false;
  InpFrm form{engine, windows, window};
  User user;
};

TEST_F(InputFormTest, ShowsTheFirstFieldInTheEditBox) {
  then([this] {
    EXPECT_EQ(box()->text(), "1");
    EXPECT_TRUE(box()->hasFocus());
    EXPECT_EQ(box()->palette().color(QPalette::Base), QColor(255, 255, 255));
    EXPECT_FALSE(window.enabled);
    EXPECT_EQ(QApplication::activeModalWidget(), &form);
    EXPECT_EQ(form.windowTitle(), "VOR_KEL: Parametri Iniziali");
    EXPECT_EQ(box()->accessibleName(), QString("δa"));
  });
  giveUp();
  show();
  EXPECT_TRUE(window.enabled);
}

TEST_F(InputFormTest, EnterAndArrowsWalkThroughTheFields) {
  then([this] {
    replace("1e3");
    QTest::keyClick(box(), Qt::Key_Return);
    EXPECT_EQ(engine.InpCurrent, 2);
    EXPECT_EQ(field(1)->accessibleDescription(), "1000") << "the cell shows what was left in it";
    EXPECT_EQ(field(3)->accessibleDescription(), "x");
    EXPECT_EQ(box()->text(), "due");
    EXPECT_EQ(box()->palette().color(QPalette::Base), QColor(240, 240, 240));
    QTest::keyClick(box(), Qt::Key_Down);
    EXPECT_EQ(engine.InpCurrent, 3);
    QTest::keyClick(box(), Qt::Key_Enter);
    EXPECT_EQ(engine.InpCurrent, 1);
    EXPECT_EQ(box()->palette().color(QPalette::Base), QColor(240, 240, 240)) << "grey when revisited";
    QTest::keyClick(box(), Qt::Key_Up);
    EXPECT_EQ(engine.InpCurrent, 3);
    QTest::keyClick(box(), Qt::Key_Escape);
    EXPECT_EQ(engine.InpCurrent, 3);
    EXPECT_TRUE(form.isVisible());
  });
  giveUp();
  show();
}

TEST_F(InputFormTest, AClickGoesToItsField) {
  then([this] {
    QTest::mouseClick(field(3), Qt::LeftButton);
    EXPECT_EQ(engine.InpCurrent, 3);
    EXPECT_EQ(box()->geometry(), toPixels(engine.editBox().place));
    EXPECT_TRUE(box()->hasFocus());
  });
  giveUp();
  show();
}

TEST_F(InputFormTest, EseguiHandsOverAndRunsTheActionWhenTheFormIsGone) {
  session.ErrFlag = 7;
  then([this] { replace("1e3"); });
  execute();
  show();
  EXPECT_EQ(tables.InpValues[1], "1000");
  EXPECT_EQ(session.ErrFlag, 0);
  EXPECT_THAT(actions, ElementsAre(kStoreParameters));
  EXPECT_FALSE(visibleInAction);
  EXPECT_FALSE(form.isVisible());
}

TEST_F(InputFormTest, EseguiWithABadFieldKeepsTheFormOpenAndRunsNothing) {
  then([this] { replace("abc"); });
  execute();
  then([this] {
    EXPECT_EQ(sound.beeps, 3);
    EXPECT_TRUE(form.isVisible());
    EXPECT_TRUE(box()->hasFocus());
    EXPECT_EQ(box()->text(), "abc");
  });
  giveUp();
  show();
  EXPECT_TRUE(actions.empty());
  EXPECT_EQ(session.ErrFlag, -1);
  EXPECT_EQ(tables.InpValues[1], "1");
}

TEST_F(InputFormTest, RinunciaWithABadFieldClosesAndSetsTheFlag) {
  then([this] { replace("abc"); });
  user.key("InpFrm", Qt::Key_R, Qt::AltModifier);
  show();
  EXPECT_EQ(session.ErrFlag, -1);
  EXPECT_TRUE(actions.empty());
}

TEST_F(InputFormTest, TheWindowControlActsAsRinuncia) {
  user.close("InpFrm");
  show();
  EXPECT_EQ(session.ErrFlag, -1);
  EXPECT_TRUE(window.enabled);
}

TEST_F(InputFormTest, AccessKeysPressTheButtons) {
  user.key("InpFrm", Qt::Key_E, Qt::AltModifier);
  show();
  EXPECT_THAT(actions, ElementsAre(kStoreParameters));
}

TEST_F(InputFormTest, TabWalksThroughTheFieldsAndWhatWasTypedStays) {
  then([this] {
    replace("25");
    QTest::keyClick(box(), Qt::Key_Tab);
    EXPECT_EQ(engine.InpCurrent, 2);
    EXPECT_TRUE(box()->hasFocus());
    EXPECT_EQ(field(1)->accessibleDescription(), "25");
    replace("tre");
    QTest::keyClick(box(), Qt::Key_Tab);
    QTest::keyClick(box(), Qt::Key_Tab);
    EXPECT_EQ(engine.InpCurrent, 1) << "from the last field to the first";
    EXPECT_EQ(box()->text(), "25");
    QTest::keyClick(box(), Qt::Key_Backtab, Qt::ShiftModifier);
    EXPECT_EQ(engine.InpCurrent, 3);
    QTest::keyClick(box(), Qt::Key_Backtab, Qt::ShiftModifier);
    EXPECT_EQ(box()->text(), "tre");
    EXPECT_TRUE(box()->hasFocus());
  });
  execute();
  show();
  EXPECT_EQ(tables.InpValues[1], "25");
  EXPECT_EQ(tables.InpValues[2], "tre");
}

TEST_F(InputFormTest, TheFocusThatGoesToAControlOfTheFormLeavesTheField) {
  then([this] {
    control<QPushButton>(&form, "cmdRin")->setFocus();
    EXPECT_EQ(engine.InpCurrent, 0);
    EXPECT_EQ(box()->text(), "");
    EXPECT_FALSE(box()->hasFocus());
  });
  giveUp();
  show();
}

TEST_F(InputFormTest, ABadFieldGetsTheFocusBack) {
  then([this] {
    replace("abc");
    QTest::keyClick(box(), Qt::Key_Tab);
    EXPECT_TRUE(box()->hasFocus());
    EXPECT_EQ(engine.InpCurrent, 1);
    EXPECT_EQ(box()->text(), "abc");
    EXPECT_EQ(sound.beeps, 3);
  });
  giveUp();
  show();
}

TEST_F(InputFormTest, AnotherWindowMayTakeTheFocusWithoutBlankingTheField) {
  QWidget other;
  other.setWindowModality(Qt::ApplicationModal);
  then([this, &other] {
    replace("25");
    bringToFront(&other);
    EXPECT_EQ(engine.InpCurrent, 1);
    other.hide();
    form.activateWindow();
  });
  then([this] {
    EXPECT_EQ(engine.InpCurrent, 1);
    EXPECT_EQ(box()->text(), "25");
  });
  execute();
  show();
  EXPECT_EQ(tables.InpValues[1], "25");
}

TEST_F(InputFormTest, ABadFormulaShowsTheBoxOnceAndTheFieldStays) {
  compiles = false;
  then([this] { QTest::mouseClick(field(3), Qt::LeftButton); });
  then([this] { QTest::keyClick(box(), Qt::Key_Return); });
  user.at("PlainBox", [](QWidget* box) { QTest::keyClick(box, Qt::Key_Return); });
  then([this] {
    EXPECT_EQ(sound.beeps, 3);
    EXPECT_EQ(engine.InpCurrent, 3);
    EXPECT_EQ(box()->text(), "x");
  });
  giveUp();
  show();
}

TEST_F(InputFormTest, WhatAHandlerThrowsReachesTheCommand) {
  breaks = true;
  then([this] { QTest::mouseClick(field(3), Qt::LeftButton); });
  then([this] { QTest::keyClick(box(), Qt::Key_Return); });
  EXPECT_THROW(show(), RuntimeError);
  EXPECT_FALSE(form.isVisible());
  EXPECT_TRUE(window.enabled);
}

TEST_F(InputFormTest, ResizingHasNoEffect) {
  then([this] {
    const QSize before = form.size();
    form.resize(before * 2);
    EXPECT_EQ(form.size(), before);
  });
  giveUp();
  show();
}

TEST_F(InputFormTest, StandsCentredBelowTheTopOfItsCaller) {
  then([this] {
    EXPECT_EQ(form.frameGeometry().top(), owner.frameGeometry().top() + 40);
    EXPECT_LE(std::abs(form.frameGeometry().center().x() - owner.frameGeometry().center().x()), 1);
  });
  giveUp();
  show();
}

TEST_F(InputFormTest, ThePlacesOnTheScreenAreThoseOfTheGrid) {
  then([this] {
    const CellSize cell = engine.layout().cell;
    EXPECT_EQ(form.size(), QSize(44 * cell.width / 15, 12 * cell.height / 15));
    EXPECT_EQ(field(2)->geometry(),
              toPixels(Rect{9.0 * cell.width, 4.0 * cell.height + 5, 7.0 * cell.width, cell.height + 40.0}));
    EXPECT_NEAR(control<QPushButton>(&form, "cmdRin")->geometry().center().x(), form.width() / 4.0, 1);
    EXPECT_NEAR(control<QPushButton>(&form, "cmdEse")->geometry().center().x(), 3 * form.width() / 4.0, 1);
    EXPECT_EQ(control<QPushButton>(&form, "cmdEse")->y(), toPixels(10 * cell.height));
    EXPECT_EQ(form.accessibleName(), "VOR_KEL: Parametri Iniziali");
    EXPECT_FALSE(field(0)->isVisible()) << "the template";
  });
  giveUp();
  show();
}

TEST_F(InputFormTest, FramesPromptsAndFixedTextsArePainted) {
  tables.InpLabels[1] = "\xDB";  // a full block, at row 4 and column 2
  tables.InpTextCount = 1;
  tables.InpTexts.dim(1);
  tables.InpTextPos.dim(1);
  tables.InpTexts[1] = " \xDB\xDB ";
  tables.InpTextPos[1] = {2, 21, 1};
  then([this] {
    const CellSize cell = engine.layout().cell;
    const auto at = [&](double row, double col) {
      return pixelAt(&form, QPoint(toPixels((col - 0.5) * cell.width), toPixels((row - 0.5) * cell.height)));
    };
    const QColor surface = at(3, 30);
    EXPECT_EQ(at(4, 2), QColor(Qt::black));
    EXPECT_NE(at(4, 3), QColor(Qt::black));
    // Two letters centred on the left edge of column 21.
    EXPECT_EQ(at(2, 20), QColor(Qt::black));
    EXPECT_EQ(at(2, 21), QColor(Qt::black));
    EXPECT_EQ(at(2, 19), surface);
    EXPECT_EQ(at(2, 22), surface);
    // The light sides of a frame are white, as the form is not.
    EXPECT_EQ(at(1, 20), QColor(Qt::white)) << "top";
    EXPECT_EQ(at(10, 20), QColor(Qt::black)) << "bottom";
    EXPECT_NE(surface, QColor(Qt::white));
  });
  giveUp();
  show();
}

TEST_F(InputFormTest, OnlyCharactersOfTheCodePageCanBeTyped) {
  then([this] {
    replace(QString("a€²b"));
    EXPECT_EQ(box()->text(), QString("a²b"));
  });
  then([this] { QTest::keyClick(box(), Qt::Key_Backspace); });
  giveUp();
  show();
}

TEST_F(InputFormTest, TheTextTypedGoesToTheTableInCodePage437) {
  then([this] { QTest::mouseClick(field(2), Qt::LeftButton); });
  then([this] { replace(QString("µ²")); });
  execute();
  show();
  EXPECT_EQ(tables.InpValues[2], "\xE6\xFD");
}

TEST_F(InputFormTest, TheButtonsOfAFormWithoutFieldsAreReachedByTab) {
  setFields({});
  then([this] {
    QTest::keyClick(QApplication::focusWidget() != nullptr ? QApplication::focusWidget() : &form,
                    Qt::Key_Tab);
    EXPECT_TRUE(qobject_cast<QPushButton*>(QApplication::focusWidget()));
  });
  giveUp();
  show();
}

TEST_F(InputFormTest, AFormWithoutFieldsExecutes) {
  setFields({});
  then([this] { EXPECT_FALSE(box()->isVisible()); });
  execute();
  show();
  EXPECT_THAT(actions, ElementsAre(kStoreParameters));
}

TEST_F(InputFormTest, ASecondShowingHasNoFieldsOfTheFirst) {
  giveUp();
  show();
  setFields({{"7", "#Number", -8}});
  then([this] {
    EXPECT_EQ(box()->text(), "7");
    EXPECT_EQ(form.findChild<QWidget*>("lblVal(2)"), nullptr);
    EXPECT_EQ(form.findChildren<QWidget*>("lblVal(1)").size(), 1);
  });
  giveUp();
  show();
}

}  // namespace
}  // namespace vk
