#include <QAccessible>
#include <QApplication>
#include <QClipboard>
#include <QMimeData>
#include <QProcess>
#include <QScrollArea>
#include <algorithm>

#include "ui_qt/Desktop.h"

namespace vk {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;

class DiagnosisScenarioTest : public Desktop {
 protected:
  void SetUp() override { start(); }
  void readData(const std::string& bytes) {
    user.choose("MenDatLet");
    user.file(QString::fromStdString(folder.make("dati.dat", bytes)));
  }
  /// A fit of a straight line; `second` tells whether its parameters are free.
  void fitLine(const std::string& bytes, const QString& second = "1") {
    readData(bytes);
    chooseFunction(0, 1);
    user.choose("MenAdaPar");
    fillForm({"1", "0", "1", second});
    user.choose("MenAdaAda");
    act();
  }
  void press(const QString& window, Qt::Key key) {
    user.key(window, key);
    act();
  }
  static QWidget* shown() { return windowNamed("FrmDia"); }
  static QString described(const char* name) {
    auto* part = control<QWidget>(shown(), name);
    return QAccessible::queryAccessibleInterface(part)->text(QAccessible::Description);
  }
  static std::string text() { return described("Surface").toStdString(); }
};

const char* const kLineDiagnosis = R"(  y = bx+c
┌───────────────────────────────────────────────────┐
│              Minimo e Errori Lineari              │
├─────────────────────────┬─────────────────────────┤
│     Minimizzazione      │ µ                   7   │
)";

TEST_F(DiagnosisScenarioTest, F2AndTheMenuKeyOpenItAndEscapeClosesIt) {
  fitLine(lineData());
  EXPECT_EQ(shown(), nullptr) << "nobody has asked";
  EXPECT_EQ(windowNamed("FrmOut")->accessibleDescription(),
            "F2 o il tasto Menu mostrano la Diagnosi dell'Adattamento");
  EXPECT_EQ(control<QWidget>(windowNamed("FrmOut"), "Surface")->toolTip(),
            windowNamed("FrmOut")->accessibleDescription());
  for (const Qt::Key key : {Qt::Key_F2, Qt::Key_Menu}) {
    press("FrmOut", key);
    ASSERT_NE(shown(), nullptr);
    EXPECT_EQ(shown()->windowTitle(), "VOR_KEL: Diagnosi dell'Adattamento");
    EXPECT_THAT(text(), testing::StartsWith(kLineDiagnosis));
    EXPECT_TRUE(window().isEnabled());
    press("FrmDia", Qt::Key_Escape);
    EXPECT_EQ(shown(), nullptr);
    EXPECT_NE(windowNamed("FrmOut"), nullptr) << "the screen of the fit stays";
  }
}

TEST_F(DiagnosisScenarioTest, IsReadByAssistiveTools) {
  fitLine(lineData());
  press("FrmOut", Qt::Key_F2);
  EXPECT_EQ(shown()->accessibleName(), "VOR_KEL: Diagnosi dell'Adattamento");
  EXPECT_THAT(text(), HasSubstr("Minimo e Errori Lineari"));
  EXPECT_EQ(control<QWidget>(shown(), "Figure")->accessibleName(), "Scarti e loro Istogramma");
  EXPECT_THAT(described("Figure").toStdString(),
              testing::MatchesRegex("Scarti divisi per i loro errori: 9 punti, 0 oltre 2, .* a x = [0-9]"));
  std::vector<QString> captions;
  for (int i = 0; i < 3; ++i)
    captions.push_back(control<QPushButton>(shown(), QString("CmdDia(%1)").arg(i))->text());
  EXPECT_THAT(captions, ElementsAre(QString("&Continua"), QString("&Stampa"), QString("Co&pia")));
}

TEST_F(DiagnosisScenarioTest, ASecondF2ShowsTheSameWindowAgain) {
  fitLine(lineData());
  press("FrmOut", Qt::Key_F2);
  QWidget* first = shown();
  const std::string before = text();
  press("FrmDia", Qt::Key_F2);
  EXPECT_EQ(shown(), first);
  press("FrmOut", Qt::Key_F2);
  EXPECT_EQ(shown(), first);
  EXPECT_EQ(text(), before);
  EXPECT_TRUE(QTest::qWaitForWindowActive(first));
  press("FrmDia", Qt::Key_Return);
  EXPECT_FALSE(first->isVisible());
}

TEST_F(DiagnosisScenarioTest, IsCopiedAsTextAndPictures) {
  fitLine(lineData());
  press("FrmOut", Qt::Key_F2);
  user.press("FrmDia", "CmdDia(2)");
  act();
  const QMimeData* content = QGuiApplication::clipboard()->mimeData();
  EXPECT_EQ(content->text().toStdString(), text() + described("Figure").toStdString() + "\n");
  EXPECT_THAT(content->data("image/svg+xml").toStdString(), HasSubstr("<svg"));
  const QImage image = qvariant_cast<QImage>(content->imageData());
  EXPECT_EQ(image.width() / 2,
            control<QWidget>(shown(), "Surface")->width() + control<QWidget>(shown(), "Figure")->width());
}

TEST_F(DiagnosisScenarioTest, IsPrintedOnOnePageWithItsFigure) {
  fitLine(lineData());
  press("FrmOut", Qt::Key_F2);
  user.press("FrmDia", "CmdDia(1)");
  user.cancelFile();
  act();
  EXPECT_TRUE(window().isEnabled());
  user.press("FrmDia", "CmdDia(1)");
  user.file(QString::fromStdString(folder / "diagnosi.pdf"));
  act();
  QProcess reader;
  reader.start("pdftotext", {"-layout", QString::fromStdString(folder / "diagnosi.pdf"), "-"});
  ASSERT_TRUE(reader.waitForFinished());
  const std::string printed = reader.readAllStandardOutput().toStdString();
  for (const char* part : {"Minimo e Errori Lineari", "Minimo Raggiunto", "gradi di liberta`", "Punti"})
    EXPECT_THAT(printed, HasSubstr(part));
  EXPECT_EQ(std::ranges::count(printed, '\f'), 1) << "one page";
  EXPECT_TRUE(boxes.empty());
}

TEST_F(DiagnosisScenarioTest, OpensFromTheMainWindowBehindAFitThatFailed) {
  press("Vor_Kel", Qt::Key_F2);
  EXPECT_EQ(shown(), nullptr) << "there is no fit yet";
  user.choose("MenFunLet");
  user.file(QString::fromStdString(folder.make("f.fcn", "a,q\r\na*x+0*q\r\nretta\r\n")));
  user.choose("MenFunCar");
  user.press("Loa_Fun", "CmdAcc");
  chooseFunction(0, 5);
  readData(lineData());
  user.choose("MenAdaPar");
  fillForm({"1", "1", "1", "1"});
  user.choose("MenAdaAda");
  answerBox();
  act();
  EXPECT_EQ(windowNamed("FrmOut"), nullptr);
  press("Vor_Kel", Qt::Key_F2);
  ASSERT_NE(shown(), nullptr);
  EXPECT_THAT(text(), HasSubstr("Parametri Dipendenti"));
}

TEST_F(DiagnosisScenarioTest, KeepsItsPlaceForFiguresOfAnySizeAndManyPoints) {
  std::string bytes = "x\r\ny\r\n32767\r\n";
  for (int i = 0; i < 32767; ++i)
    bytes += std::to_string(i) + " " + std::to_string(2 * i + (i * 7919 % 13 - 6) * 0.1) + " .4\r\n";
  fitLine(bytes);
  press("FrmOut", Qt::Key_F2);
  ASSERT_NE(shown(), nullptr);
  EXPECT_THAT(described("Figure").toStdString(), HasSubstr("32767 punti"));
  auto* figure = control<QLabel>(shown(), "Figure");
  const QSize before = figure->size();
  for (const QSize more : {QSize(200, 150), QSize(-100, 0), QSize(0, 300)}) {
    shown()->resize(shown()->size() + more);
    QCoreApplication::processEvents();
    const QSize drawn = figure->pixmap(Qt::ReturnByValue).deviceIndependentSize().toSize();
    EXPECT_LE(std::abs(drawn.width() - figure->width()), 1);
    EXPECT_LE(std::abs(drawn.height() - figure->height()), 1);
  }
  EXPECT_NE(figure->size(), before);
}

TEST_F(DiagnosisScenarioTest, ALongTextIsScrolledByKey) {
  fitLine(lineData());
  press("FrmOut", Qt::Key_F2);
  shown()->resize(shown()->minimumSizeHint());
  QCoreApplication::processEvents();
  auto* scroll = shown()->findChild<QScrollArea*>();
  scroll->setFocus();
  QTest::keyClick(scroll, Qt::Key_PageDown);
  EXPECT_LT(scroll->widget()->y(), 0);
}

TEST_F(DiagnosisScenarioTest, ShowsConstantParametersAndNoDegreesOfFreedom) {
  fitLine("x\r\ny\r\n2\r\n0 1 .1\r\n1 3 .1\r\n");
  press("FrmOut", Qt::Key_F2);
  EXPECT_THAT(text(), HasSubstr("gradi di liberta` 0."));
  press("FrmDia", Qt::Key_Escape);
  user.press("FrmOut", "CmdOut(0)");
  fitLine(lineData(), "0");
  press("FrmOut", Qt::Key_F2);
  EXPECT_THAT(text(), HasSubstr("___________"));
}

}  // namespace
}  // namespace vk
