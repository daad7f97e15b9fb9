#include <QApplication>
#include <QListWidget>

#include "ui_qt/Desktop.h"

namespace vk {
namespace {

class FunctionFormsTest : public Desktop {
 protected:
  void SetUp() override { start(); }
  /// A step while Sel_Fun is open.
  void select(std::function<void(QWidget*)> step) { user.at("Sel_Fun", std::move(step)); }
  static QListWidget* outer(QWidget* form) { return control<QListWidget>(form, "LstOut"); }
  static QListWidget* inner(QWidget* form) { return control<QListWidget>(form, "LstInn"); }
  static QString text(QWidget* form) { return control<QLineEdit>(form, "TxtFun")->text(); }
  void readFunctions(const std::string& bytes) {
    user.choose("MenFunLet");
    user.file(QString::fromStdString(folder.make("prova.fcn", bytes)));
    act();
  }

  static constexpr const char* kTwo = "A,B\r\nA*x+B\r\nretta\r\nC\r\nC*x^2\r\nparabola\r\n";
};

TEST_F(FunctionFormsTest, TheSelectionOpensOnTheFirstEntriesBesideTheMainWindow) {
  user.choose("MenFunSel");
  select([this](QWidget* form) {
    EXPECT_EQ(form->windowTitle(), "VOR_KEL: Selezione Funzione");
    EXPECT_EQ(outer(form)->count(), 9);
    EXPECT_EQ(inner(form)->count(), 5);
    EXPECT_EQ(outer(form)->currentRow(), 0);
    EXPECT_EQ(inner(form)->currentRow(), 0);
    EXPECT_EQ(outer(form)->item(3)->text(), QString("√u"));
    EXPECT_EQ(inner(form)->item(2)->text(), QString("ax²+bx+c"));
    EXPECT_EQ(text(form), " y = c ");
    EXPECT_EQ(form->frameGeometry().left(), window().frameGeometry().left() + 40);
    EXPECT_LE(std::abs(form->frameGeometry().center().y() - window().frameGeometry().center().y()), 1);
  });
  user.press("Sel_Fun", "CmdRin");
  act();
  EXPECT_EQ(session().analysis.FunDefined, kFalse);
  EXPECT_EQ(session().analysis.fun.InnerIndex, 0);
}

TEST_F(FunctionFormsTest, ClicksAndKeysShowTheComposite) {
  user.choose("MenFunSel");
  select([](QWidget* form) {
    QListWidget* list = inner(form);
    QTest::mouseClick(list->viewport(), Qt::LeftButton, {}, list->visualItemRect(list->item(3)).center());
    EXPECT_EQ(text(form), QString(" y = [(x-m)²+a]/b "));
    QTest::keyClick(outer(form), Qt::Key_Down);
    QTest::keyClick(outer(form), Qt::Key_Down);
    EXPECT_EQ(text(form), QString(" y = b/[(x-m)²+a] "));
  });
  user.key("Sel_Fun", Qt::Key_A, Qt::AltModifier);
  act();
  EXPECT_EQ(session().analysis.FunDefined, kTrue);
  EXPECT_EQ(session().analysis.fun.InnerIndex, 4);
  EXPECT_EQ(session().analysis.fun.OuterIndex, 3);
  EXPECT_EQ(panel(4), "Fun.Att.: SI");
  EXPECT_TRUE(menuOn("MenSerPro"));
  EXPECT_TRUE(menuOn("MenAda"));
}

TEST_F(FunctionFormsTest, ThePairIsTheSameForTheUserWhoGivesUp) {
  chooseFunction(0, 1);
  user.choose("MenFunSel");
  select([](QWidget* form) { QTest::keyClick(inner(form), Qt::Key_End); });
  user.close("Sel_Fun");
  act();
  EXPECT_EQ(session().analysis.fun.InnerIndex, 2);
  EXPECT_EQ(session().analysis.fun.OuterIndex, 1);
}

TEST_F(FunctionFormsTest, AccessKeysOfListsAreTheirFirstLetters) {
  user.choose("MenFunSel");
  select([](QWidget* form) {
    EXPECT_TRUE(outer(form)->hasFocus());
    QTest::keyClick(outer(form), Qt::Key_Tab);
    EXPECT_TRUE(inner(form)->hasFocus());
  });
  user.press("Sel_Fun", "CmdRin");
  act();
}

TEST_F(FunctionFormsTest, TheLoadFormShowsDefinitionAndParameters) {
  readFunctions(kTwo);
  EXPECT_TRUE(menuOn("MenFunCar"));
  user.choose("MenFunCar");
  user.at("Loa_Fun", [](QWidget* form) {
    EXPECT_EQ(form->windowTitle(), "VOR_KEL: Carica Funzione");
    auto* list = control<QListWidget>(form, "LstFun");
    EXPECT_EQ(list->count(), 2);
    EXPECT_EQ(list->currentRow(), 0);
    EXPECT_EQ(control<QPlainTextEdit>(form, "TxtDef")->toPlainText(), "A*x+B");
    QTest::keyClick(list, Qt::Key_Down);
    EXPECT_EQ(control<QPlainTextEdit>(form, "TxtDef")->toPlainText(), "C*x^2");
    EXPECT_EQ(control<QPlainTextEdit>(form, "TxtPar")->toPlainText(), "C");
    EXPECT_TRUE(control<QPlainTextEdit>(form, "TxtDef")->isReadOnly());
  });
  user.press("Loa_Fun", "CmdAcc");
  act();
  user.choose("MenFunSel");
  select([](QWidget* form) {
    ASSERT_EQ(inner(form)->count(), 6);
    EXPECT_EQ(inner(form)->item(5)->text(), "parabola");
  });
  user.press("Sel_Fun", "CmdRin");
  act();
  EXPECT_TRUE(window().isEnabled());
}

TEST_F(FunctionFormsTest, GivingUpLoadsNothing) {
  readFunctions(kTwo);
  user.choose("MenFunCar");
  user.close("Loa_Fun");
  act();
  EXPECT_EQ(session().loaded.catalogue.inner.size(), 5u);
  EXPECT_TRUE(window().isEnabled());
}

TEST_F(FunctionFormsTest, ANewFileFillsTheListAnew) {
  readFunctions(kTwo);
  readFunctions("A\r\nA\r\nsola\r\n");
  user.choose("MenFunCar");
  user.at("Loa_Fun", [](QWidget* form) { EXPECT_EQ(control<QListWidget>(form, "LstFun")->count(), 1); });
  user.press("Loa_Fun", "CmdRin");
  act();
}

}  // namespace
}  // namespace vk
