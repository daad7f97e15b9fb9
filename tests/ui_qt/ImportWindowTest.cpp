#include <QComboBox>
#include <QGroupBox>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QSpinBox>
#include <QTableWidget>
#include <filesystem>
#include <fstream>

#include "doubles/OrdinaryUser.h"
#include "doubles/Places.h"
#include "ui_qt/MainFormFixture.h"

namespace vk {
namespace {

using testing::HasSubstr;
using testing::StartsWith;

const std::string kTable = "Tempo;Velocit\u00E0;Errore\n0,5;1,5;0,1\n1;2,5;0,1\n1,5;n.d.;0,1\n2;4,5;0,1\n";

class ImportWindowTest : public MainFormFixture {
 protected:
  /// Looks at the window in one step.
  void look(const std::function<void(QWidget*)>& at) { user.at("FrmImp", at); }
  void giveUp() { user.key("FrmImp", Qt::Key_Escape); }
  void saveAs(const std::string& name) {
    user.press("FrmImp", "CmdSal");
    user.file(QString::fromStdString(name));
  }
  static std::string message(QWidget* form) { return control<QLabel>(form, "LblRis")->text().toStdString(); }
  std::string table() { return folder.make("misura 1.csv", kTable); }
  std::string bytesOf(const std::string& name) { return files.readAll(name); }
};

TEST_F(ImportWindowTest, ShowsTheTableSavesItAndReadsIt) {
  const std::string source = table();
  look([&](QWidget* form) {
    EXPECT_EQ(form->windowTitle(), "VOR_KEL: Importazione Tabella");
    EXPECT_EQ(form->accessibleName(), form->windowTitle());
    EXPECT_EQ(control<QGroupBox>(form, "FraLin")->title(), "File misura 1.csv");
    EXPECT_THAT(message(form), HasSubstr("colonne 1, 2 e 3, 3 punti, 1 riga tralasciata"));
    auto* lines = control<QTableWidget>(form, "TabLin");
    EXPECT_EQ(lines->item(0, 1)->text().toStdString(), "Velocit\u00E0");
    EXPECT_EQ(lines->item(3, 1)->toolTip(), "\"n.d.\" non e` un numero");
    EXPECT_EQ(lines->horizontalHeaderItem(2)->text(), "3: dy");
    EXPECT_THAT(control<QPlainTextEdit>(form, "TxtPun")->toPlainText().toStdString(),
                StartsWith("Tempo\nVelocit\u00E0\n 3\n"));
    EXPECT_EQ(form->focusWidget()->objectName(), "CmdSal");
    QTest::keyClick(form->focusWidget(), Qt::Key_Return);
  });
  user.at("FileDialog", [&](QWidget* dialog) {
    EXPECT_EQ(dialog->windowTitle(), "VOR_KEL: Salva con Nome File Dati");
    auto* name = control<QLineEdit>(dialog, "fileNameEdit");
    EXPECT_EQ(name->text(), "misura 1.DAT");
    QTest::keyClick(name, Qt::Key_Return);
  });
  open({source});
  const std::string saved = folder / "misura 1.DAT";
  EXPECT_EQ(session().loaded.DataFile, saved);
  EXPECT_EQ(session().loaded.data.NumPnt, 3);
  EXPECT_EQ(session().loaded.data.Ypnt[3], 4.5);
  EXPECT_EQ(session().files.RecentData.paths[1], saved);
  EXPECT_THAT(bytesOf(saved), StartsWith("Tempo\r\nVelocit\u00E0\r\n 3\r\n"));
  EXPECT_EQ(bytesOf(source), kTable);
  EXPECT_EQ(windowNamed("FrmImp"), nullptr);
}

TEST_F(ImportWindowTest, FollowsEachChoiceByKey) {
  look([](QWidget* form) {
    const auto points = [&] { return control<QPlainTextEdit>(form, "TxtPun")->toPlainText().toStdString(); };
    auto* dy = control<QComboBox>(form, "LstImp(6)");
    auto* value = control<QLineEdit>(form, "TxtErr");
    EXPECT_FALSE(value->isEnabled());
    dy->setFocus();
    for (int i = 0; i < 4; ++i) QTest::keyClick(dy, Qt::Key_Down);
    EXPECT_EQ(dy->currentText(), "valore");
    EXPECT_TRUE(value->isEnabled());
    value->selectAll();
    typeText(value, "0.25");
    EXPECT_THAT(points(), HasSubstr("2.50000E-01 \n  1.00000E+00"));
    value->selectAll();
    typeText(value, "x");
    EXPECT_EQ(message(form), "dy: si attende un numero positivo");
    EXPECT_EQ(points(), "");
    EXPECT_FALSE(control<QPushButton>(form, "CmdSal")->isEnabled());
    QTest::keyClick(dy, Qt::Key_Home);
    EXPECT_EQ(dy->currentText(), "auto: 3 (Errore)");
    auto* header = control<QSpinBox>(form, "TxtInt");
    EXPECT_EQ(header->text(), "auto: 1");
    for (int i = 0; i < 3; ++i) QTest::keyClick(header, Qt::Key_Up);
    EXPECT_THAT(message(form), HasSubstr("2 punti"));
    auto* thinning = control<QComboBox>(form, "LstImp(7)");
    auto* count = control<QSpinBox>(form, "TxtRid");
    EXPECT_FALSE(count->isEnabled());
    QTest::keyClick(thinning, Qt::Key_End);
    EXPECT_TRUE(count->isEnabled());
    EXPECT_EQ(message(form), "un file dati contiene almeno due punti");
    QTest::keyClick(control<QComboBox>(form, "LstImp(1)"), Qt::Key_End);
    EXPECT_EQ(control<QTableWidget>(form, "TabLin")->columnCount(), 1);
  });
  giveUp();
  open({table()});
  EXPECT_EQ(windowNamed("FrmImp"), nullptr);
  EXPECT_EQ(session().loaded.DataDefined, 0);
}

TEST_F(ImportWindowTest, IsWalkedThroughByTabAndKeepsItsFieldsWhenSmall) {
  look([](QWidget* form) {
    QStringList order;
    control<QWidget>(form, "TabLin")->setFocus();
    for (int i = 0; i < 13; ++i) {
      order << form->focusWidget()->objectName();
      QTest::keyClick(form->focusWidget(), Qt::Key_Tab);
    }
    EXPECT_EQ(order.join(' ').toStdString(),
              "TabLin LstImp(0) LstImp(1) LstImp(2) TxtInt LstImp(3) LstImp(4) LstImp(5) LstImp(6) LstImp(7) "
              "TxtPun "
              "CmdSal CmdRin");
    form->resize(form->minimumSizeHint());
    QCoreApplication::processEvents();
    for (const char* name : {"TabLin", "LstImp(6)", "TxtPun", "CmdRin"}) {
      auto* part = control<QWidget>(form, name);
      EXPECT_TRUE(form->rect().contains(QRect(part->mapTo(form, QPoint(0, 0)), part->size()))) << name;
    }
  });
  user.close("FrmImp");
  open({table()});
}

TEST_F(ImportWindowTest, StaysOpenWhereNothingWasSaved) {
  const std::string source = table(), closed = folder / "chiusa";
  std::filesystem::create_directory(closed);
  std::filesystem::permissions(closed,
                               std::filesystem::perms::owner_read | std::filesystem::perms::owner_exec);
  const OrdinaryUser ordinary(folder);
  user.press("FrmImp", "CmdSal");
  user.cancelFile();
  saveAs(closed + "/a.dat");
  user.at("FrmMsg", [&](QWidget* box) {
    EXPECT_EQ(box->accessibleDescription().toStdString(),
              "Specificazione File: " + closed + "/a.dat ERRATA!");
    QTest::mouseClick(control<QPushButton>(box, "CmdMsg(1)"), Qt::LeftButton);
  });
  saveAs(folder / "a.dat");
  open({source});
  EXPECT_EQ(session().loaded.DataFile, folder / "a.dat");
}

TEST_F(ImportWindowTest, AFullDiskEndsItWithTheMessageOfTheProgram) {
  const std::string source = table();
  files.fullFor = 1;
  saveAs(folder / "a.dat");
  answerBox();
  open({source});
  ASSERT_EQ(boxes.size(), 1u);
  EXPECT_THAT(boxes[0].toStdString(), HasSubstr("57"));
  EXPECT_EQ(windowNamed("FrmImp"), nullptr);
  EXPECT_FALSE(files.FileExists(folder / "a.dat"));
}

TEST_F(ImportWindowTest, WhatIsNoTextIsToldWithTheWayOut) {
  const std::string rubbish =
      folder.make("rubbish.bin", std::string("\x01\x02\0\xFF\x80rubbish\0\0\x03", 15));
  const std::vector<std::pair<std::string, std::string>> cases{
      {sourcePath("tests/files/workbook.xlsx"),
       "sembra una cartella di lavoro .xlsx: aprirla con il foglio elettronico e salvarla come CSV"},
      {rubbish, ""},
      {folder / "missing.csv", "Impossibile trovare il file"},
      {folder / "nowhere/missing.csv", "Impossibile trovare il percorso"},
      {folder.path(), ""},
  };
  for (const auto& [path, reason] : cases) {
    boxes.clear();
    answerBox();
    open({path, folder / "never.csv"});
    ASSERT_EQ(boxes.size(), 1u) << path;
    EXPECT_THAT(boxes[0].toStdString(), StartsWith("Il File " + path + ": " + reason));
  }
}

TEST_F(ImportWindowTest, ATableWithTheExtensionOfDataIsListedAndThenOffered) {
  session().settings.ShowErrors = kTrue;
  const std::string source = folder.make("misura.dat", kTable);
  look([](QWidget* form) {
    EXPECT_NE(windowNamed("FrmOut"), nullptr) << "the list of errors";
    QTest::mouseClick(control<QPushButton>(form, "CmdSal"), Qt::LeftButton);
  });
  user.at("FileDialog", [](QWidget* dialog) {
    auto* name = control<QLineEdit>(dialog, "fileNameEdit");
    EXPECT_EQ(name->text(), "misura_IMP.DAT") << "the table itself is not to be replaced";
    QTest::keyClick(name, Qt::Key_Return);
  });
  open({source});
  EXPECT_EQ(session().loaded.DataFile, folder / "misura_IMP.DAT");
}

}  // namespace
}  // namespace vk
