#include "ui/qt/forms/OutputForm.h"

#include <QAccessible>
#include <QApplication>
#include <QClipboard>
#include <QMessageBox>
#include <QMimeData>

#include "doubles/Doubles.h"
#include "session/Session.h"
#include "ui/qt/ports/QtClipboard.h"
#include "ui/qt/ports/QtOutput.h"
#include "ui/qt/widgets/DesktopServices.h"
#include "ui/qt/widgets/EventPump.h"
#include "ui/qt/widgets/Twips.h"
#include "ui_qt/User.h"

namespace vk {
namespace {

using testing::ElementsAre;

class OutputFormTest : public testing::Test {
 protected:
  void SetUp() override {
    owner.resize(700, 500);
    owner.move(60, 40);
    bringToFront(&owner);
    windows.add(Form::kMain, &owner);
  }
  void open(std::vector<WindowText> captions, const std::string& text = "", int rows = 10, int cols = 60) {
    output.OutShow({Form::kMain, rows, cols, std::move(captions), "Titolo", Cp437Text(text)});
    ASSERT_TRUE(QTest::qWaitForWindowActive(&output.form()));
  }
  void press(int index) {
    QTest::mouseClick(control<QPushButton>(&output.form(), QString("CmdOut(%1)").arg(index)), Qt::LeftButton);
  }
  QWidget* surface() { return control<QWidget>(&output.form(), "Surface"); }

  QWidget owner;
  Session session;
  Windows windows;
  RecordingPrinter printer;
  RecordingClipboard clipboard;
  EventPump pump;
  QtOutput output{{session.settings.FontEdit, session.settings.FontLabel, windows, printer, clipboard,
                   [](const auto& handler) { handler(); }},
                  pump};
};

TEST_F(OutputFormTest, IsModeless) {
  open(kReportButtons);
  EXPECT_TRUE(output.form().isVisible());
  EXPECT_TRUE(owner.isEnabled());
  EXPECT_EQ(output.form().windowModality(), Qt::NonModal);
}

TEST_F(OutputFormTest, ContinuaClosesAndLeavesTheOwnerToWhoeverHoldsItShut) {
  open(kReportButtons);
  owner.setEnabled(false);
  press(0);
  EXPECT_FALSE(output.form().isVisible());
  EXPECT_FALSE(owner.isEnabled());
}

TEST_F(OutputFormTest, AccessKeysPressItsButtons) {
  open(kReportButtons);
  QTest::keyClick(&output.form(), Qt::Key_P, Qt::AltModifier);
  EXPECT_THAT(clipboard.calls, ElementsAre("clear", "grid"));
  QTest::keyClick(&output.form(), Qt::Key_C, Qt::AltModifier);
  EXPECT_FALSE(output.form().isVisible());
}

TEST_F(OutputFormTest, EnterPressesTheFirstButton) {
  open(kReportButtons);
  QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
  EXPECT_FALSE(output.form().isVisible());
}

TEST_F(OutputFormTest, EnterPressesTheFirstButtonWhateverHasTheFocus) {
  for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Enter}) {
    open(kReportButtons);
    press(2);
    ASSERT_TRUE(control<QPushButton>(&output.form(), "CmdOut(2)")->hasFocus());
    clipboard.calls.clear();
    QTest::keyClick(QApplication::focusWidget(), key);
    EXPECT_FALSE(output.form().isVisible());

    open(kReportButtons, "testo");
    auto* text = control<QPlainTextEdit>(&output.form(), "TxtOut");
    QTest::mouseClick(text->viewport(), Qt::LeftButton);
    ASSERT_TRUE(text->hasFocus());
    QTest::keyClick(text, key);
    EXPECT_FALSE(output.form().isVisible());
  }
  EXPECT_THAT(clipboard.calls, testing::IsEmpty());
  EXPECT_THAT(printer.calls, testing::IsEmpty());
}

TEST_F(OutputFormTest, SpacePressesTheButtonThatHasTheFocus) {
  open(kReportButtons);
  QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
  QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
  QTest::keyClick(QApplication::focusWidget(), Qt::Key_Space);
  EXPECT_THAT(clipboard.calls, ElementsAre("clear", "grid"));
}

/// Keeps what the surface showed when it was painted last.
class PaintedGrid : public QObject {
 public:
  PaintedGrid(QWidget* surface, const OutputModel& model) : model_(model) {
    surface->installEventFilter(this);
  }
  std::string text;

 protected:
  bool eventFilter(QObject*, QEvent* event) override {
    if (event->type() == QEvent::Paint) text = model_.grid().toUtf8();
    return false;
  }

 private:
  const OutputModel& model_;
};

TEST_F(OutputFormTest, WhatACommandDrawsFirstIsPaintedAtOnce) {
  const PaintedGrid painted(surface(), output.form().model());
  for (const char* text : {"in Corso", "ancora"}) {
    output.OutShow({Form::kMain, 10, 60, kReportButtons, "Titolo", ""});
    output.print(Cp437Text(std::string(text)));
    output.refresh();
    EXPECT_THAT(painted.text, testing::StartsWith(text)) << "however soon after the showing";
  }
}

TEST_F(OutputFormTest, WhatWasPrintedIsPaintedBehindABox) {
  open(kReportButtons);
  output.refresh();
  const PaintedGrid painted(surface(), output.form().model());
  output.print("ultima riga");
  output.CharFrame(2, 1, 5, 9, 3, "Quadro");
  QMessageBox box;
  User user;
  std::string behind;
  box.setObjectName("Box");
  user.at("Box", [&](QWidget* shown) {
    behind = painted.text;
    QTest::keyClick(shown, Qt::Key_Escape);
  });
  box.exec();
  EXPECT_EQ(behind, output.form().model().grid().toUtf8());
}

TEST_F(OutputFormTest, StampaPrintsAndCopiaCopies) {
  open(kReportButtons);
  output.print("abc");
  press(1);
  EXPECT_THAT(printer.calls, ElementsAre("landscape", "grid", "end", "portrait"));
  press(2);
  EXPECT_EQ(clipboard.grid.rowText(1).substr(0, 3), "abc");
  EXPECT_TRUE(output.form().isVisible());
}

TEST_F(OutputFormTest, TheButtonsOfANarrowWindowStandApart) {
  open({"&Continua", "&Stampa", "Co&pia", "Salva &File"}, "", 12, 46);
  for (int i = 0; i < 4; ++i) {
    const auto* button = control<QPushButton>(&output.form(), QString("CmdOut(%1)").arg(i));
    EXPECT_GE(button->width(), button->fontMetrics().horizontalAdvance(button->text().remove('&')));
    if (i == 3) break;
    const auto* next = control<QPushButton>(&output.form(), QString("CmdOut(%1)").arg(i + 1));
    EXPECT_GE(next->x() - (button->x() + button->width()), 6);
  }
}

TEST_F(OutputFormTest, SalvaFileRunsTheRoutineAndCloses) {
  int saved = 0;
  open({"&Continua", "&Stampa", "Co&pia", "Salva &File"});
  output.setSaveRoutine([&] { ++saved; });
  press(3);
  EXPECT_EQ(saved, 1);
  EXPECT_FALSE(output.form().isVisible());
}

TEST_F(OutputFormTest, OtherCaptionsDoNothing) {
  open({"&Altro"});
  press(0);
  EXPECT_TRUE(output.form().isVisible());
}

TEST_F(OutputFormTest, TheWindowControlExits) {
  open(kReportButtons);
  output.form().close();
  EXPECT_FALSE(output.form().isVisible());
  EXPECT_TRUE(owner.isEnabled());
}

TEST_F(OutputFormTest, AWindowWithoutButtonsIsClosedByItsCommandOnly) {
  open({});
  output.form().close();
  EXPECT_TRUE(output.form().isVisible());
  output.FrmOut_Exit();
  EXPECT_FALSE(output.form().isVisible());
}

TEST_F(OutputFormTest, TextModeShowsTheTextOfCodePage437) {
  open(kReportButtons, "X\xFD/\xE6\r\nuno\r\n");
  auto* text = control<QPlainTextEdit>(&output.form(), "TxtOut");
  EXPECT_TRUE(text->isVisible());
  EXPECT_TRUE(text->isReadOnly());
  EXPECT_EQ(text->toPlainText(), QString("X²/µ\nuno\n"));
  EXPECT_FALSE(surface()->isVisible());
}

TEST_F(OutputFormTest, BlanksOpenInDrawingMode) {
  open(kReportButtons, "    ");
  EXPECT_TRUE(surface()->isVisible());
  EXPECT_FALSE(control<QPlainTextEdit>(&output.form(), "TxtOut")->isVisible());
}

TEST_F(OutputFormTest, TheSurfaceHasTheSizeOfItsGrid) {
  open(kReportButtons);
  const CellSize cell = output.form().cell();
  EXPECT_EQ(surface()->size(), QSize(60 * cell.width / 15, 10 * cell.height / 15));
  EXPECT_EQ(output.form().height(), surface()->height() + toPixels(Twips(2 * 405)));
}

TEST_F(OutputFormTest, FramesArePaintedThroughTheCentresOfTheirCells) {
  open(kReportButtons);
  output.CharFrame(2, 3, 8, 20, 3, "");
  output.refresh();
  for (const ColouredLine& line : frameLines({2, 3, 8, 20, 3}, output.form().cell(), kWhite)) {
    const QPoint middle(toPixels(Twips((line.x1 + line.x2) / 2)), toPixels(Twips((line.y1 + line.y2) / 2)));
    EXPECT_EQ(pixelAt(surface(), middle), QColor(line.colour.rgb()));
  }
  EXPECT_EQ(pixelAt(surface(), QPoint(2, 2)), QColor(Qt::white));
  // No line goes on behind its corner.
  const CellSize cell = output.form().cell();
  const int left = toPixels(Twips(2.5 * cell.width)), right = toPixels(Twips(19.5 * cell.width));
  const int top = toPixels(Twips(1.5 * cell.height)), bottom = toPixels(Twips(7.5 * cell.height));
  for (const int x : {left, right}) {
    for (const int y : {top - 3, bottom + 3}) EXPECT_EQ(pixelAt(surface(), QPoint(x, y)), QColor(Qt::white));
  }
  for (const int y : {top, bottom}) {
    for (const int x : {left - 3, right + 3}) EXPECT_EQ(pixelAt(surface(), QPoint(x, y)), QColor(Qt::white));
  }
}

TEST_F(OutputFormTest, ACharacterFillsTheCellOfItsRowAndColumn) {
  open(kReportButtons);
  output.CharLocate(4, 7);
  output.print(Cp437Text(std::string("\xDB")));  // a full block
  output.refresh();
  const CellSize cell = output.form().cell();
  const QSize size(toPixels(Twips(cell.width)), toPixels(Twips(cell.height)));
  const auto middle = [&](int row, int col) {
    return QPoint((col - 1) * size.width() + size.width() / 2, (row - 1) * size.height() + size.height() / 2);
  };
  EXPECT_EQ(pixelAt(surface(), middle(4, 7)), QColor(Qt::black));
  for (const auto& [row, col] : {std::pair{3, 7}, {5, 7}, {4, 6}, {4, 8}}) {
    EXPECT_EQ(pixelAt(surface(), middle(row, col)), QColor(Qt::white)) << row << ", " << col;
  }
}

TEST_F(OutputFormTest, TheWholeFormIsWhite) {
  open(kReportButtons);
  QWidget& form = output.form();
  EXPECT_EQ(pixelAt(&form, QPoint(1, form.height() - 2)), QColor(Qt::white)) << "beside the buttons";
  EXPECT_EQ(pixelAt(&form, QPoint(1, 1)), QColor(Qt::white));
}

TEST_F(OutputFormTest, ButtonsStandInTheMiddleOfTheirStrips) {
  for (const char* text : {"", "testo"}) {
    open({"&Continua", "&Stampa", "Co&pia", "Salva &File"}, text);
    const int width = output.form().width();
    for (int i = 0; i < 4; ++i) {
      const QRect place = control<QPushButton>(&output.form(), QString("CmdOut(%1)").arg(i))->geometry();
      EXPECT_NEAR(place.center().x(), (2 * i + 1) * width / 8.0, 1);
      EXPECT_NEAR(place.top(), toPixels(Twips(output.form().model().OutPixelH + 405 / 2.0)), 1);
    }
  }
}

TEST_F(OutputFormTest, StandsCentredBelowTheTopOfItsOwner) {
  open(kReportButtons);
  EXPECT_EQ(output.form().frameGeometry().top(), owner.frameGeometry().top() + 40);
  EXPECT_LE(std::abs(output.form().frameGeometry().center().x() - owner.frameGeometry().center().x()), 1);
}

TEST_F(OutputFormTest, ATextReplacesTheFrameBehindIt) {
  open(kReportButtons);
  output.CharFrame(2, 3, 8, 20, 3, "");
  output.CharLocate(2, 6);
  output.print("   ");
  const CellSize cell = output.form().cell();
  EXPECT_EQ(pixelAt(surface(), QPoint(13 * cell.width / 30, 3 * cell.height / 30)), QColor(Qt::white));
}

TEST_F(OutputFormTest, AWindowBesideLeavesTheOneBeforeOpen) {
  open(kReportButtons, "primo");
  FrmOut* first = &output.form();
  OutputRequest second{Form::kMain, 10, 60, kReportButtons, "Secondo", ""};
  second.beside = true;
  output.OutShow(second);
  EXPECT_NE(&output.form(), first);
  EXPECT_TRUE(first->isVisible());
  EXPECT_EQ(control<QPlainTextEdit>(first, "TxtOut")->toPlainText(), "primo");
  output.FrmOut_Exit();
  EXPECT_TRUE(first->isVisible());
  first->close();
  EXPECT_FALSE(first->isVisible());
}

TEST_F(OutputFormTest, ANewShowingReplacesTheOneBefore) {
  open(kReportButtons, "primo");
  FrmOut* first = &output.form();
  open({"&Continua"});
  EXPECT_EQ(&output.form(), first);
  EXPECT_FALSE(control<QPushButton>(first, "CmdOut(1)")->isVisible());
}

TEST_F(OutputFormTest, TheGridCanBeReadByAssistiveTools) {
  open(kReportButtons);
  output.print("Iter.   12");
  output.refresh();
  EXPECT_EQ(output.form().accessibleName(), "Titolo");
  const QString text = QAccessible::queryAccessibleInterface(surface())->text(QAccessible::Description);
  EXPECT_TRUE(text.startsWith("Iter.   12\n"));
}

TEST(QtClipboard, HoldsAGridAsBitmapAndAsText) {
  const FontSpec font{"Courier New", 10};
  QtClipboard clipboard(font);
  CharGrid grid(2, 12);
  grid.print(1, 1, Cp437Text(std::string("X\xFD/\xE6 = 1")));
  clipboard.clear();
  clipboard.setGrid(grid);
  const QMimeData* content = QGuiApplication::clipboard()->mimeData();
  EXPECT_TRUE(content->hasImage());
  EXPECT_FALSE(qvariant_cast<QImage>(content->imageData()).isNull());
  EXPECT_EQ(content->text(), QString("X²/µ = 1\n\n"));
}

TEST(QtClipboard, TakesAndGivesTextsOfCodePage437) {
  const FontSpec font{"Courier New", 10};
  QtClipboard clipboard(font);
  clipboard.setText(Cp437Text(std::string("a\xFB\x62")));
  EXPECT_EQ(QGuiApplication::clipboard()->text(), QString("a√b"));
  EXPECT_EQ(clipboard.text().text.bytes(), "a\xFB\x62");
  EXPECT_TRUE(clipboard.text().complete);
  QGuiApplication::clipboard()->setText("€uro");
  EXPECT_EQ(clipboard.text().text.bytes(), "uro");
  EXPECT_FALSE(clipboard.text().complete);
}

}  // namespace
}  // namespace vk
