#include <QApplication>
#include <QClipboard>
#include <QMimeData>
#include <QPlainTextEdit>
#include <QProcess>
#include <QScreen>
#include <QTimer>
#include <algorithm>
#include <cstdlib>

#include "ui_qt/Desktop.h"

namespace vk {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

enum Button : int { kContinue = 0, kExit = 1, kCopy = 2, kPrint = 3 };

/// By how much the colours of a pixel differ at most, of 255.
int farthest(const QImage& one, const QImage& other) {
  int most = 0;
  for (int y = 0; y < one.height(); ++y) {
    for (int x = 0; x < one.width(); ++x) {
      const QRgb a = one.pixel(x, y), b = other.pixel(x, y);
      most = std::max({most, std::abs(qRed(a) - qRed(b)), std::abs(qGreen(a) - qGreen(b)),
                       std::abs(qBlue(a) - qBlue(b))});
    }
  }
  return most;
}

/// Somebody who looks at figures.
class FigureScenarioTest : public Desktop {
 protected:
  void SetUp() override { start(); }

  QString path(const std::string& name) { return QString::fromStdString(folder / name); }
  void drawData() {
    folder.make("retta.dat", lineData());
    user.choose("MenDatLet");
    user.file(path("retta.dat"));
    draw("MenGraDatVis");
  }
  /// Draws a figure and waits until its window has come to the front.
  void draw(const QString& command) {
    user.choose(command);
    user.at("GralFrm", [](QWidget*) {});
  }
  void fitLine() {
    chooseFunction(0, 1);
    user.choose("MenAdaPar");
    fillForm({"1", "0", "1", "1"});
    user.choose("MenAdaAda");
    user.press("FrmOut", "CmdOut(0)");
  }
  /// Clicks into the figure in front and presses a button of the dialog.
  void answerClick(int button) {
    user.at("GralFrm",
            [](QWidget* figure) { QTest::mouseClick(figure, Qt::LeftButton, {}, QPoint(200, 150)); });
    user.press("FrmMsg", QString("CmdMsg(%1)").arg(button));
  }
  std::vector<std::string> shownFigures() {
    std::vector<std::string> captions;
    for (const QWidget* window : QApplication::topLevelWidgets()) {
      if (window->objectName() == "GralFrm" && window->isVisible())
        captions.push_back(window->windowTitle().toStdString());
    }
    return captions;
  }
  /// What a program that reads PDF files says of one.
  std::string told(const QString& program, const QStringList& arguments) {
    QProcess reader;
    reader.start(program, arguments);
    EXPECT_TRUE(reader.waitForFinished()) << program.toStdString();
    return reader.readAllStandardOutput().toStdString();
  }
  /// One page that holds the texts of the axes as texts, and no image.
  void expectVectorPage(const std::string& name) {
    EXPECT_THAT(told("pdfinfo", {path(name)}), HasSubstr("Pages:           1"));
    const std::string text = told("pdftotext", {"-layout", path(name), "-"});
    EXPECT_THAT(text, HasSubstr("x")) << text;
    EXPECT_THAT(text, HasSubstr("10")) << text;
    const std::string images = told("pdfimages", {"-list", path(name)});
    EXPECT_EQ(std::count(images.begin(), images.end(), '\n'), 2) << "only the head of the list\n" << images;
  }
};

TEST_F(FigureScenarioTest, EachKindOfFigureHasAWindowOfItsOwn) {
  drawData();
  fitLine();
  draw("MenGraFunVis");
  draw("MenGraDifVis");
  act();
  EXPECT_THAT(shownFigures(),
              testing::UnorderedElementsAre("VOR_KEL: Grafico Dati", "VOR_KEL: Grafico Dati e Funzione",
                                            "VOR_KEL: Grafico Differenze Dati-Funzione"));
  for (const char* entry : {"MenGraDatGra", "MenGraFunGra", "MenGraDifGra", "MenGraDifSav"}) {
    EXPECT_TRUE(menuOn(entry)) << entry;
  }
  EXPECT_TRUE(exitCodes.empty());
}

TEST_F(FigureScenarioTest, AFigureIsWholeAsSoonAsItsCommandHasEnded) {
  drawData();
  act();
  QWidget* figure = windowNamed("GralFrm");
  ASSERT_NE(figure, nullptr);
  QEventLoop idle;
  QTimer::singleShot(50, &idle, &QEventLoop::quit);
  idle.exec();
  // What stands in the window now, without asking it to paint.
  const QImage shown = figure->screen()->grabWindow(figure->winId()).toImage();
  ASSERT_EQ(shown.size(), figure->size())
      << "without a screen, of a scaled window only its first pixels are told";
  const QImage wanted = figure->grab().toImage().copy(shown.rect());
  EXPECT_LE(farthest(shown, wanted), 1) << "the parts of a scaled figure are rounded one by one";
}

TEST_F(FigureScenarioTest, AClickOffersFourActionsOverTheFigure) {
  drawData();
  user.at("GralFrm", [](QWidget* figure) { QTest::mouseClick(figure, Qt::LeftButton, {}, QPoint(5, 5)); });
  std::vector<QString> buttons;
  QString caption;
  QPoint away(9999, 9999);
  user.at("FrmMsg", [&](QWidget* dialog) {
    caption = dialog->windowTitle();
    for (int i = 0; i < 4; ++i)
      buttons.push_back(control<QPushButton>(dialog, QString("CmdMsg(%1)").arg(i))->text());
    away = dialog->frameGeometry().center() - windowNamed("GralFrm")->frameGeometry().center();
    QTest::mouseClick(control<QPushButton>(dialog, "CmdMsg(0)"), Qt::LeftButton);
  });
  act();
  EXPECT_EQ(caption, "VOR_KEL: Grafico Dati");
  EXPECT_THAT(buttons, ElementsAre("&Continua", "&Esci", "Co&pia", "&Stampa"));
  EXPECT_LE(away.manhattanLength(), 4);
  EXPECT_THAT(shownFigures(), ElementsAre("VOR_KEL: Grafico Dati"));
}

TEST_F(FigureScenarioTest, ExitHidesTheFigureAndTheMainWindowComesForward) {
  drawData();
  answerClick(kExit);
  act();
  EXPECT_THAT(shownFigures(), IsEmpty());
  EXPECT_TRUE(QTest::qWaitForWindowActive(&window()));
}

TEST_F(FigureScenarioTest, APrintedFigureIsVectorsAndItsCopyStaysAsItWas) {
  drawData();
  answerClick(kCopy);
  act();
  const QImage before = QGuiApplication::clipboard()->image();
  const QByteArray vectors = QGuiApplication::clipboard()->mimeData()->data("image/svg+xml");
  EXPECT_FALSE(before.isNull());
  EXPECT_TRUE(vectors.contains("<path"));

  answerClick(kPrint);
  user.file(path("figura.pdf"));
  act();
  expectVectorPage("figura.pdf");
  EXPECT_THAT(told("pdfinfo", {path("figura.pdf")}), HasSubstr("842 x 595")) << "it is wider than high";
  EXPECT_EQ(application.printer().Orientation(), kPortrait);

  QGuiApplication::clipboard()->clear();
  answerClick(kCopy);
  act();
  EXPECT_EQ(QGuiApplication::clipboard()->image(), before);
  EXPECT_EQ(QGuiApplication::clipboard()->mimeData()->data("image/svg+xml"), vectors);
}

TEST_F(FigureScenarioTest, AFigureHigherThanWideIsPrintedUpright) {
  session().figures.Landscape = kFalse;
  drawData();
  answerClick(kPrint);
  user.file(path("alta.pdf"));
  act();
  expectVectorPage("alta.pdf");
  EXPECT_THAT(told("pdfinfo", {path("alta.pdf")}), HasSubstr("595 x 842"));
}

TEST_F(FigureScenarioTest, APrintedFigureIsProposedUnderTheNameOfItsData) {
  drawData();
  answerClick(kPrint);
  user.at("FileDialog", [](QWidget* dialog) {
    EXPECT_EQ(control<QLineEdit>(dialog, "fileNameEdit")->text(), "retta.pdf");
    QTest::keyClick(control<QLineEdit>(dialog, "fileNameEdit"), Qt::Key_Return);
  });
  act();
  expectVectorPage("retta.pdf");
}

TEST_F(FigureScenarioTest, TheKeyboardReachesTheActionsOfAFigure) {
  drawData();
  user.key("GralFrm", Qt::Key_Return);
  user.press("FrmMsg", QString("CmdMsg(%1)").arg(kExit));
  act();
  EXPECT_THAT(shownFigures(), IsEmpty());
}

TEST_F(FigureScenarioTest, APrintThatIsCancelledLeavesTheFigureInFront) {
  drawData();
  answerClick(kPrint);
  user.cancelFile();
  act();
  EXPECT_THAT(shownFigures(), ElementsAre("VOR_KEL: Grafico Dati"));
  EXPECT_TRUE(QTest::qWaitForWindowActive(windowNamed("GralFrm")));
  EXPECT_EQ(folder.count(), 1) << "the data file alone";
}

TEST_F(FigureScenarioTest, ASavedFigureIsReadRunAndPrinted) {
  drawData();
  user.choose("MenGraDatGra");
  user.at("FileDialog", [](QWidget* dialog) {
    EXPECT_EQ(dialog->windowTitle(), "VOR_KEL: Salva File Grafico (Dati)");
    EXPECT_EQ(control<QLineEdit>(dialog, "fileNameEdit")->text(), "retta_DAT");
    QTest::keyClick(control<QLineEdit>(dialog, "fileNameEdit"), Qt::Key_Return);
  });
  user.choose("MenGraLetFil");
  user.file(path("retta_DAT.GRA"));
  act();
  EXPECT_EQ(panel(3), "Gra.: retta_DAT.GRA");
  const QImage drawn = windowNamed("GralFrm")->grab().toImage();
  draw("MenGraVisFil");
  act();
  EXPECT_THAT(shownFigures(),
              testing::UnorderedElementsAre("VOR_KEL: Grafico Dati", "VOR_KEL: Visualizza File Grafico"));
  for (QWidget* figure : QApplication::topLevelWidgets()) {
    if (figure->windowTitle() != "VOR_KEL: Visualizza File Grafico") continue;
    EXPECT_EQ(figure->grab().toImage(), drawn);
  }
  EXPECT_EQ(panel(1), "Dati: RETTA.DAT");

  user.choose("MenGraPriFil");
  user.file(path("foglio.pdf"));
  act();
  EXPECT_EQ(shownFigures().size(), 2U);
  expectVectorPage("foglio.pdf");
}

TEST_F(FigureScenarioTest, TheErrorsOfAGraphicFileAreListedOverItsFigure) {
  folder.make("e.gra", "\\SEGNO(1,2)\r\n\\SIMBOLO(3,4)\r\n");
  user.choose("MenSerErr");
  user.choose("MenGraLetFil");
  user.file(path("e.gra"));
  user.choose("MenGraVisFil");
  QString caption;
  user.at("FrmOut", [&](QWidget* list) {
    caption = list->windowTitle();
    // The figure stands in the corner of the screen and is narrower than the list.
    EXPECT_GE(list->frameGeometry().left(), list->screen()->availableGeometry().left());
    EXPECT_EQ(control<QPlainTextEdit>(list, "TxtOut")->toPlainText().trimmed(),
              "***\\SEGNO(1,2) Comando Errato");
  });
  user.press("FrmOut", "CmdOut(0)");
  act();
  EXPECT_EQ(caption, "VOR_KEL: File Grafico - Controllo File");
}

TEST_F(FigureScenarioTest, FiguresAreClosedWithTheProgram) {
  drawData();
  draw("MenGraDatVis");
  act();
  EXPECT_EQ(shownFigures().size(), 2U);
  window().close();
  EXPECT_THAT(shownFigures(), IsEmpty());
  EXPECT_THAT(exitCodes, ElementsAre(0));
}

TEST_F(FigureScenarioTest, TheProgramIsNotClosedUnderAFigureThatIsBeingDrawn) {
  drawData();
  bool tried = false;
  user.at("Vor_Kel", [&](QWidget* main) {
    QTimer somebody;
    QObject::connect(&somebody, &QTimer::timeout, [&] {
      if (!application.mainMod().isRunning()) return;
      tried = true;
      main->close();
    });
    somebody.start(0);
    control<QAction>(main, "MenGraDatVis")->trigger();
  });
  act();
  EXPECT_TRUE(tried);
  EXPECT_THAT(exitCodes, IsEmpty());
  EXPECT_TRUE(window().isVisible());
  EXPECT_EQ(shownFigures().size(), 2U);
}

}  // namespace
}  // namespace vk
