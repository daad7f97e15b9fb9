#include <QApplication>
#include <QListWidget>
#include <QProcess>
#include <filesystem>

#include "ui_qt/Desktop.h"

namespace vk {
namespace {

using testing::HasSubstr;

class EditorScenarioTest : public Desktop {
 protected:
  void SetUp() override { start(); }
  FrmEdi* editor() { return dynamic_cast<FrmEdi*>(windowNamed("FrmEdi")); }
  /// Opens a file by a command of the main window.
  void edit(const QString& command, const std::string& file) {
    user.choose(command);
    user.file(QString::fromStdString(file));
  }
  void chooseInEditor(const QString& entry) {
    user.at("FrmEdi", [entry](QWidget* form) { clickMenu(form, entry); });
  }
  void write(const QString& text) {
    user.at("FrmEdi", [text](QWidget*) { typeText(QApplication::focusWidget(), text); });
  }
  void key(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
    user.key("FrmEdi", key, modifiers);
  }
  std::string printed(const std::string& file) {
    QProcess reader;
    reader.start("pdftotext", {"-layout", QString::fromStdString(folder / file), "-"});
    EXPECT_TRUE(reader.waitForFinished());
    return reader.readAllStandardOutput().toStdString();
  }
};

TEST_F(EditorScenarioTest, AFaultyDataFileIsCorrectedByItsReport) {
  folder.make("guasto.dat", "x\r\ny\r\n4\r\n0 1.02 .1\r\n1 tre .1\r\n2 5.05 .1\r\n3 7.01 .1\r\n");
  edit("MenDatMod", "guasto.dat");
  act();
  user.at("FrmEdi", [this](QWidget* form) {
    EXPECT_EQ(form->windowTitle().toStdString(), "VOR_KEL: Modifica File Dati guasto.dat");
    EXPECT_FALSE(window().isEnabled());
  });
  chooseInEditor("MnuFilSav");
  user.at("FrmMsg", [](QWidget* message) {
    EXPECT_EQ(message->windowTitle(), "VOR_KEL: Modifica File Dati");
    EXPECT_EQ(message->accessibleDescription().toStdString(), "Errori nel File Dati: guasto.dat !");
    QTest::mouseClick(control<QPushButton>(message, "CmdMsg(2)"), Qt::LeftButton);
  });
  user.at("FrmOut", [this](QWidget* report) {
    EXPECT_EQ(report->windowTitle(), "VOR_KEL: Lettura File Dati - ERRORI");
    EXPECT_EQ(control<QPlainTextEdit>(report, "TxtOut")->toPlainText(),
              "***ERR. Linea 5; Dato 2: tre\n   Dato NON numerico\n");
    EXPECT_TRUE(editor()->isVisible()) << "the editor stays behind the report";
    EXPECT_FALSE(window().isEnabled());
  });
  user.press("FrmOut", "CmdOut(0)");

  key(Qt::Key_F, Qt::ControlModifier);
  write("tre");
  key(Qt::Key_Return);
  key(Qt::Key_Escape);
  write("2.95");
  chooseInEditor("MnuFilSav");
  act();
  EXPECT_EQ(editor(), nullptr);
  EXPECT_TRUE(window().isEnabled());
  EXPECT_EQ(session().loaded.DataDefined, kFalse) << "saving does not read";
  EXPECT_EQ(folder.bytesOf("guasto.dat"),
            "x\r\ny\r\n4\r\n0 1.02 .1\r\n1 2.95 .1\r\n2 5.05 .1\r\n3 7.01 .1\r\n");

  user.choose("MenDatLet");
  user.file("guasto.dat");
  act();
  EXPECT_EQ(panel(1), "Dati: guasto.dat");
  EXPECT_EQ(session().loaded.data.NumPnt, 4);
  EXPECT_EQ(session().loaded.data.Ypnt[2], 2.95);
}

TEST_F(EditorScenarioTest, InALargeFileOfAllBytesOnlyTheChangedLineDiffers) {
  // Every code but the two of the line ends, eight to a line, again and again; the last line has no end.
  std::string bytes;
  for (int i = 0; bytes.size() < 40001; ++i) {
    const int code = i % 256;
    if (i % 8 == 7) {
      bytes += "\r\n";
    } else if (code != '\r' && code != '\n') {
      bytes += static_cast<char>(code);
    }
    if (code == 255) bytes += "\x07\x0F\x17\x1F\x27\xFF";
  }
  bytes.resize(40001, 'z');
  bytes.back() = ' ';
  folder.make("grande.gra", bytes);
  edit("MenGraModFil", "grande.gra");
  user.at("FrmMsg", [](QWidget* message) {
    EXPECT_EQ(message->windowTitle(), "VOR_KEL: Modifica File Grafico");
    EXPECT_THAT(message->accessibleDescription().toStdString(),
                HasSubstr("contiene piu` di 40000 caratteri!"));
    QTest::mouseClick(control<QPushButton>(message, "CmdMsg(1)"), Qt::LeftButton);
  });
  key(Qt::Key_Down);
  key(Qt::Key_Down);
  key(Qt::Key_End);
  write("ò");
  chooseInEditor("MnuFilSav");
  act();
  EXPECT_TRUE(window().isEnabled());

  std::size_t endOfThird = 0;
  for (int line = 0; line < 3; ++line) endOfThird = bytes.find("\r\n", endOfThird + (line > 0 ? 2 : 0));
  std::string expected = bytes;
  expected.insert(endOfThird, "\x95");
  EXPECT_EQ(folder.bytesOf("grande.gra"), expected);
}

TEST_F(EditorScenarioTest, ANewFunctionFileIsWrittenReadLoadedAndFitted) {
  edit("MenFunMod", "nuovo.fcn");
  user.at("FrmMsg", [this](QWidget* message) {
    EXPECT_EQ(message->windowTitle(), "VOR_KEL: Modifica File");
    EXPECT_EQ(message->accessibleDescription().toStdString(),
              "FILE " + (folder / "nuovo.fcn") + " NON Esistente: lo Creo?");
    QTest::mouseClick(control<QPushButton>(message, "CmdMsg(0)"), Qt::LeftButton);
  });
  write("A,k");
  key(Qt::Key_Return);
  write("A*EXP&");
  key(Qt::Key_Return);
  write("(-k*x)");
  key(Qt::Key_Return);
  write("decadimento s");
  // The caret stays before the inserted character.
  key(Qt::Key_Left);
  chooseInEditor("MnuChrIns");
  user.at("FrmEdi",
          [](QWidget* form) { QTest::mouseClick(control<QLabel>(form, "LblChr(102)"), Qt::LeftButton); });
  chooseInEditor("MnuFilSav");
  act();
  EXPECT_EQ(editor(), nullptr) << "the check has found no error";
  EXPECT_EQ(folder.bytesOf("nuovo.fcn"), "A,k\r\nA*EXP&\r\n(-k*x)\r\ndecadimento µs\r\n");
  EXPECT_EQ(session().loaded.FunFileRead, kFalse) << "saving does not read";

  user.choose("MenFunLet");
  user.file("nuovo.fcn");
  user.choose("MenFunCar");
  user.at("Loa_Fun", [](QWidget* form) {
    const auto* list = form->findChild<QListWidget*>();
    ASSERT_NE(list, nullptr);
    ASSERT_EQ(list->count(), 1);
    EXPECT_TRUE(list->item(0)->text().contains("decadimento µs")) << list->item(0)->text().toStdString();
  });
  user.press("Loa_Fun", "CmdAcc");
  chooseFunction(0, 5);
  user.choose("MenDatLet");
  user.file(QString::fromStdString(
      folder.make("d.dat", "t\r\nN\r\n4\r\n0 100 10\r\n1 61 8\r\n2 37 6\r\n3 22 5\r\n")));
  user.choose("MenAdaPar");
  fillForm({"80", ".3", "1", "1"});
  user.choose("MenAdaAda");
  act();
  EXPECT_THAT(application.output().model().grid().toUtf8(), HasSubstr("Completata"));
  EXPECT_NEAR(session().analysis.par.ParValues[1], 100, 5);
  EXPECT_NEAR(session().analysis.par.ParValues[2], 0.5, 0.05);
}

TEST_F(EditorScenarioTest, ThePrintedTextCanBeRead) {
  folder.make("f.gra", "\\Pagina(1)\r\n   perch\x8A\r\n");
  edit("MenGraModFil", "f.gra");
  chooseInEditor("MnuPri");
  user.file(QString::fromStdString(folder / "f.pdf"));
  chooseInEditor("MnuFilRin");
  act();
  EXPECT_THAT(printed("f.pdf"), HasSubstr("\\Pagina(1)\n   perchè"));
  EXPECT_TRUE(window().isEnabled());
}

TEST_F(EditorScenarioTest, LettersOfUtf8AreTypedPrintedAndSaved) {
  folder.make("f.gra", "% È – 5 €\r\n\\Pagina(1)\r\n");
  edit("MenGraModFil", "f.gra");
  write("% λ À");
  key(Qt::Key_Return);
  chooseInEditor("MnuPri");
  user.file(QString::fromStdString(folder / "f.pdf"));
  chooseInEditor("MnuFilSav");
  act();
  EXPECT_THAT(printed("f.pdf"), HasSubstr("% λ À\n% È – 5 €"));
  EXPECT_EQ(folder.bytesOf("f.gra"), "% λ À\r\n% È – 5 €\r\n\\Pagina(1)\r\n");
}

TEST_F(EditorScenarioTest, WhatCannotBeWrittenStaysInTheEditor) {
  const std::string path = folder.make("chiavetta/f.gra", "\\Pagina(1)\r\n");
  edit("MenGraModFil", path);
  write("% ");
  act();
  std::filesystem::remove_all(folder / "chiavetta");
  chooseInEditor("MnuFilSav");
  answerBox();
  user.cancelFile();
  act();
  ASSERT_EQ(boxes.size(), 1U);
  EXPECT_TRUE(
      boxes[0].startsWith(QString::fromStdString("Il File Grafico: " + path + " NON e` stato Salvato!")))
      << boxes[0].toStdString();
  ASSERT_NE(editor(), nullptr);
  EXPECT_EQ(editor()->editorText().bytes(), "% \\Pagina(1)\r\n");
  EXPECT_FALSE(window().isEnabled());

  std::filesystem::create_directory(folder / "chiavetta");
  chooseInEditor("MnuFilSav");
  act();
  EXPECT_EQ(folder.bytesOf("chiavetta/f.gra"), "% \\Pagina(1)\r\n");
  EXPECT_TRUE(window().isEnabled());
}

TEST_F(EditorScenarioTest, AFileThatIsNotWantedIsNotMade) {
  edit("MenDatMod", "manca.dat");
  user.press("FrmMsg", "CmdMsg(1)");
  act();
  EXPECT_EQ(editor(), nullptr);
  EXPECT_TRUE(window().isEnabled());
  EXPECT_FALSE(files.FileExists(folder / "manca.dat"));
}

}  // namespace
}  // namespace vk
