#include <QApplication>
#include <QMenu>

#include "ui_qt/Desktop.h"

namespace vk {
namespace {

/// Who shuts the main window opens it, and nobody else.
class ShutWindowTest : public Desktop {
 protected:
  void SetUp() override {
    start();
    folder.make("retta.dat", lineData());
    folder.make("testo.gra", "\\Pagina(1)\r\n");
  }
  FrmEdi* editor() { return dynamic_cast<FrmEdi*>(windowNamed("FrmEdi")); }
  /// Reads a file with errors and leaves its report open.
  void leaveAReport() {
    user.choose("MenSerErr");
    user.choose("MenDatLet");
    user.file(QString::fromStdString(folder.make("guasto.dat", "x\r\ny\r\n2\r\n0 uno .1\r\n1 2 .1\r\n")));
    act();
    ASSERT_NE(windowNamed("FrmOut"), nullptr);
  }
  void writeAText() {
    user.choose("MenGraModFil");
    user.file("testo.gra");
    user.at("FrmEdi", [](QWidget*) { typeText(QApplication::focusWidget(), "% "); });
    act();
    ASSERT_NE(editor(), nullptr);
  }
  void giveUpEditing() {
    user.at("FrmEdi", [](QWidget* form) { clickMenu(form, "MnuFilRin"); });
    act();
  }
  void expectOff(const QStringList& menus) {
    for (const QString& menu : menus) EXPECT_FALSE(menuOn(menu)) << menu.toStdString();
  }
};

TEST_F(ShutWindowTest, AReportThatIsClosedBesideTheEditorLeavesTheMainWindowShut) {
  leaveAReport();
  writeAText();
  user.press("FrmOut", "CmdOut(0)");
  act();
  EXPECT_EQ(windowNamed("FrmOut"), nullptr);
  EXPECT_FALSE(window().isEnabled());
  EXPECT_TRUE(QTest::qWaitForWindowActive(editor())) << "it is what waits for the user";

  window().close();
  EXPECT_TRUE(exitCodes.empty()) << "no text is lost with the program";
  EXPECT_EQ(editor()->editorText().bytes(), "% \\Pagina(1)\r\n");
  user.at("FrmEdi", [](QWidget* form) { clickMenu(form, "MnuFilSav"); });
  act();
  EXPECT_TRUE(window().isEnabled());
  EXPECT_EQ(folder.bytesOf("testo.gra"), "% \\Pagina(1)\r\n");
}

TEST_F(ShutWindowTest, AReportThatIsClosedByItsWindowControlOpensNothingEither) {
  leaveAReport();
  writeAText();
  user.close("FrmOut");
  act();
  EXPECT_FALSE(window().isEnabled());
  giveUpEditing();
  EXPECT_TRUE(window().isEnabled());
}

TEST_F(ShutWindowTest, AFormThatIsClosedBelowAMinimisedMainWindowOpensIt) {
  chooseFunction(0, 1);
  user.choose("MenAdaPar");
  user.at("InpFrm", [this](QWidget*) {
    EXPECT_FALSE(window().isEnabled());
    window().showMinimized();
  });
  user.press("InpFrm", "cmdRin");
  act();
  EXPECT_TRUE(window().isEnabled());
}

TEST_F(ShutWindowTest, AnEditorThatIsClosedBelowAMinimisedMainWindowOpensIt) {
  writeAText();
  window().showMinimized();
  giveUpEditing();
  EXPECT_TRUE(window().isEnabled());
}

TEST_F(ShutWindowTest, GreySubMenusStayGreyBehindTheEditor) {
  const QStringList off{"MenAda", "MenGraDat", "MenGraFun", "MenGraDif"};
  expectOff(off);
  writeAText();
  expectOff(off);
  giveUpEditing();
  expectOff(off);
  EXPECT_TRUE(menuOn("MenDat"));
  EXPECT_TRUE(menuOn("MenSerOpz"));
}

TEST_F(ShutWindowTest, GreySubMenusStayGreyBehindAFormThatWasGivenUp) {
  chooseFunction(0, 1);
  user.choose("MenAdaPar");
  user.press("InpFrm", "cmdRin");
  act();
  expectOff({"MenGraDat", "MenGraFun", "MenGraDif"});
  EXPECT_TRUE(menuOn("MenAda"));
}

}  // namespace
}  // namespace vk
