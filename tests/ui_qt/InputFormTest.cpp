#include "ui/qt/widgets/Twips.h"
#include "ui_qt/InputFormFixture.h"

namespace vk {
namespace {

using testing::ElementsAre;

class InputFormTest : public InputFormFixture {};

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
  then([this] { replace("1e3"); });
  execute();
  show();
  EXPECT_EQ(tables.InpValues[1].bytes(), "1000");
  EXPECT_EQ(executed, true);
  EXPECT_FALSE(form.isVisible());
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
  EXPECT_EQ(executed, false);
  EXPECT_EQ(tables.InpValues[1].bytes(), "1");
}

TEST_F(InputFormTest, RinunciaWithABadFieldClosesAndSetsTheFlag) {
  then([this] { replace("abc"); });
  user.key("InpFrm", Qt::Key_R, Qt::AltModifier);
  show();
  EXPECT_EQ(executed, false);
}

TEST_F(InputFormTest, TheWindowControlActsAsRinuncia) {
  user.close("InpFrm");
  show();
  EXPECT_TRUE(window.enabled);
}

TEST_F(InputFormTest, AccessKeysPressTheButtons) {
  user.key("InpFrm", Qt::Key_E, Qt::AltModifier);
  show();
  EXPECT_EQ(executed, true);
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
  EXPECT_EQ(tables.InpValues[1].bytes(), "25");
  EXPECT_EQ(tables.InpValues[2].bytes(), "tre");
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
  EXPECT_EQ(tables.InpValues[1].bytes(), "25");
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
  EXPECT_EQ(tables.InpValues[2].bytes(), "\xE6\xFD");
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
  EXPECT_EQ(executed, true);
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
