#include "ui/qt/forms/Windows.h"

#include <QWindow>

#include "ui_qt/Desktop.h"

namespace vk {
namespace {

/// Where the windows of the program stand: above the main window, and minimised with it.
class OwnedWindowsTest : public Desktop {
 protected:
  void SetUp() override { start(); }

  QString path(const std::string& name) { return QString::fromStdString(folder / name); }
  /// Window systems keep windows of the kinds of dialogs above their owner, and no others.
  void expectAbove(const QWidget* window, const QWidget* owner) {
    EXPECT_EQ(window->windowType(), Qt::Dialog) << window->objectName().toStdString();
    ASSERT_NE(window->windowHandle()->transientParent(), nullptr) << window->objectName().toStdString();
    EXPECT_EQ(window->windowHandle()->transientParent(), owner->windowHandle())
        << window->objectName().toStdString();
  }
  void openEditor() {
    folder.make("a.gra", "%\r\n");
    user.choose("MenGraModFil");
    user.file(path("a.gra"));
  }
  /// Runs a graphic file with an error in it by a command.
  void runWrongFile(const QString& command) {
    folder.make("e.gra", "\\SEGNO(1,2)\r\n\\LINEA(1,1,5,5)\r\n");
    user.choose("MenSerErr");
    user.choose("MenGraLetFil");
    user.file(path("e.gra"));
    user.choose(command);
  }
  void expectAboveMain(const QString& name) {
    user.at(name, [this](QWidget* shown) { expectAbove(shown, &window()); });
  }
};

TEST_F(OwnedWindowsTest, ReportsStandAboveTheMainWindow) {
  application.output().OutShow({Form::kMain, 5, 20, kReportButtons, "Titolo", ""});
  expectAboveMain("FrmOut");
  act();
}

TEST_F(OwnedWindowsTest, WhatWasClosedMinimisedIsSeenWhenItOpensAgain) {
  const OutputRequest request{Form::kMain, 5, 20, kReportButtons, "Titolo", ""};
  FrmOut& output = application.output();
  output.OutShow(request);
  QCoreApplication::processEvents();
  output.close();
  output.setWindowState(Qt::WindowMinimized);
  output.OutShow(request);
  EXPECT_FALSE(output.windowState().testFlag(Qt::WindowMinimized));
  QCoreApplication::processEvents();
  EXPECT_FALSE(output.isMinimized());
}

TEST_F(OwnedWindowsTest, TheEditorStandsAboveTheMainWindowAndCanBeEnlarged) {
  openEditor();
  expectAboveMain("FrmEdi");
  user.at("FrmEdi", [](QWidget* editor) {
    EXPECT_TRUE(editor->windowFlags().testFlag(Qt::WindowMaximizeButtonHint));
    clickMenu(editor, "MnuFilRin");
  });
  act();
}

TEST_F(OwnedWindowsTest, FormsAndDialogsStandAboveTheMainWindow) {
  user.choose("MenFunSel");
  expectAboveMain("Sel_Fun");
  user.press("Sel_Fun", "CmdAcc");
  user.choose("MenAdaPar");
  expectAboveMain("InpFrm");
  user.press("InpFrm", "cmdRin");
  user.choose("MenDatLet");
  expectAboveMain("FileDialog");
  user.file("manca.dat");
  expectAboveMain("FrmMsg");
  user.press("FrmMsg", "CmdMsg(1)");
  act();
}

TEST_F(OwnedWindowsTest, WhatOpensOverAMinimisedMainWindowBelongsToItAllTheSame) {
  window().showMinimized();
  application.output().OutShow({Form::kMain, 5, 20, kReportButtons, "Titolo", ""});
  expectAbove(&application.output(), &window());
}

TEST_F(OwnedWindowsTest, TheErrorsOfAPrintedFileStandAboveTheMainWindow) {
  runWrongFile("MenGraPriFil");
  user.cancelFile();
  expectAboveMain("FrmOut");
  act();
}

TEST_F(OwnedWindowsTest, AClickOnTheShutMainWindowBringsTheEditorForward) {
  openEditor();
  user.at("FrmEdi", [this](QWidget*) { window().activateWindow(); });
  user.at("FrmEdi", [](QWidget*) {});
  act();
  ASSERT_FALSE(window().isEnabled());
  // A report that was left open is not what the window waits for.
  application.output().OutShow({Form::kMain, 5, 20, kReportButtons, "Titolo", ""});
  user.at("FrmOut", [this](QWidget*) {
    QTest::mouseClick(window().windowHandle(), Qt::LeftButton, {}, window().rect().center());
  });
  user.at("FrmEdi", [](QWidget* editor) { clickMenu(editor, "MnuFilRin"); });
  act();
}

TEST_F(OwnedWindowsTest, TheErrorsOfAFigureStandAboveTheMainWindow) {
  runWrongFile("MenGraVisFil");
  expectAboveMain("FrmOut");
  act();
}

}  // namespace
}  // namespace vk
