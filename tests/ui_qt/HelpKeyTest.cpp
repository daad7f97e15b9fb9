#include "ui/qt/widgets/HelpKey.h"

#include <QComboBox>
#include <QMessageBox>

#include "ui_qt/Desktop.h"

namespace vk {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

/// The program with a manual of empty pages.
class HelpKeyTest : public Desktop {
 protected:
  void SetUp() override {
    files.programs = folder / "bin";
    for (const char* page : {"indice", "20-finestre", "30-dati", "40-figure", "70-propagazione",
                             "80-simulazione", "85-trasformazione"}) {
      folder.make("share/vor_kel/manuale/" + std::string(page) + ".html", "");
    }
    start();
  }
  /// The user presses F1 in a window, and is shown this page; then this button, if any.
  void ask(const QString& form, const char* page, const QString& button = {}) {
    user.at(form, [this, page](QWidget* shown) {
      QWidget* focus = QApplication::focusWidget();
      QTest::keyClick(focus != nullptr ? focus : shown, Qt::Key_F1);
      EXPECT_THAT(std::exchange(process.shown, {}), ElementsAre(folder / "share/vor_kel/manuale/" + page));
    });
    if (!button.isEmpty()) user.press(form, button);
  }
  void choose(const QString& entry, const QString& form, const char* page, const QString& button) {
    user.choose(entry);
    ask(form, page, button);
  }
};

TEST_F(HelpKeyTest, OpensThePageOfTheWindowInHand) {
  ask("Vor_Kel", "20-finestre.html#la-finestra-principale");
  choose("MenSerImpDir", "Vor_Kel", "20-finestre.html#directory-di-lavoro", "CmdWrkDir(0)");
  choose("MenSerImpGra", "Vor_Kel", "20-finestre.html#impostazioni-grafiche", "CmdImpGra(0)");
  user.choose("MenDatLet");
  ask("FileDialog", "20-finestre.html#la-scelta-di-un-file");
  user.file(QString::fromStdString(folder.make("dati.dat", lineData())));
  choose("MenFunSel", "Sel_Fun", "20-finestre.html#selezione-funzione", "CmdRin");
  chooseFunction(0, 1);
  choose("MenAdaPar", "InpFrm", "20-finestre.html#parametri-iniziali", "cmdRin");
  choose("MenDatTra", "InpFrm", "85-trasformazione.html#nelle-finestre", "cmdRin");
  user.choose("MenAdaPar");
  fillForm({"1", "0", "1", "1"});
  choose("MenDatSim", "InpFrm", "80-simulazione.html#nelle-finestre", "cmdRin");
  choose("MenSerPro", "InpFrm", "70-propagazione.html#nelle-finestre", "cmdRin");
  act();
}

TEST_F(HelpKeyTest, OpensThePageOfResultsFiguresAndTexts) {
  open({folder.make("dati.dat", lineData())});
  chooseFunction(0, 1);
  user.choose("MenAdaPar");
  fillForm({"1", "0", "1", "1"});
  choose("MenAdaAda", "FrmOut", "20-finestre.html#adattamento-funzione-dati", {});
  user.key("FrmOut", Qt::Key_F2);
  ask("FrmDia", "20-finestre.html#diagnosi-delladattamento");
  user.key("FrmDia", Qt::Key_Escape);
  user.press("FrmOut", "CmdOut(0)");
  choose("MenGraDatVis", "GralFrm", "20-finestre.html#la-finestra-di-una-figura", {});
  user.key("GralFrm", Qt::Key_Return);
  ask("FrmMsg", "20-finestre.html#la-finestra-di-una-figura", "CmdMsg(1)");
  user.choose("MenDatMod");
  user.file(QString::fromStdString(folder / "dati.dat"));
  ask("FrmEdi", "20-finestre.html#leditor");
  user.close("FrmEdi");
  choose("MenSerErr", "Vor_Kel", "20-finestre.html#la-finestra-principale", {});
  user.choose("MenDatLet");
  user.file(QString::fromStdString(folder.make("rotto.dat", "x\r\n")));
  ask("FrmOut", "30-dati.html#il-controllo", "CmdOut(0)");
  act();
  ask("FrmImp", "20-finestre.html#importazione-tabella", "CmdRin");
  open({folder.make("tabella.csv", "1;2\n3;4\n")});
}

TEST_F(HelpKeyTest, IsNotPressedWithAnotherKeyNorHeld) {
  QTest::keyClick(&window(), Qt::Key_F1, Qt::ShiftModifier);
  QKeyEvent held(QEvent::KeyPress, Qt::Key_F1, {}, {}, true);
  QCoreApplication::sendEvent(&window(), &held);
  EXPECT_THAT(process.shown, IsEmpty());
}

TEST_F(HelpKeyTest, AMissingManualIsTold) {
  files.programs = "/nowhere/bin";
  user.key("Vor_Kel", Qt::Key_F1);
  answerBox();
  act();
  EXPECT_EQ(boxes.at(0), "Manuale NON Trovato!     <*> per Continuare");
}

}  // namespace
}  // namespace vk
