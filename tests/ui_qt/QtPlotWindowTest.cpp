#include "ui/qt/ports/QtPlotWindow.h"

#include <QApplication>
#include <QClipboard>
#include <QGuiApplication>
#include <QMimeData>
#include <QScreen>
#include <QSignalSpy>
#include <QTest>

#include "gral/NoPrinter.h"
#include "gral/Plotting.h"
#include "ui_qt/User.h"

namespace vk {
namespace {

class PlotWindowTest : public ::testing::Test {
 protected:
  ~PlotWindowTest() override { windows.closeAll(); }

  /// A new window with a line across the page and a black box in its middle.
  QtPlotWindow& draw(const std::string& caption = "VOR_KEL: Grafico Dati",
                     const char* orientation = "LANDSCAPE") {
    auto& window = dynamic_cast<QtPlotWindow&>(windows.create());
    GralCls drawing(printer);
    drawing.GralCaption = caption;
    drawing.GralGrStr(window.device(), orientation, 1);
    drawing.GralLine(0, 0, drawing.XrLog, drawing.YtLog);
    drawing.GralDev->FilledBox(3000, 2000, 4500, 3000, kBlack);
    drawing.GralRefresh();
    drawing.GralGrEnd();
    return window;
  }

  QtGraphics graphics;
  EventPump pump;
  NoPrinter printer;
  QtPlotWindows windows{graphics, pump, [](const std::function<void()>& handler) { handler(); }};
};

TEST_F(PlotWindowTest, TakesCaptionAndSizeOfTheFigure) {
  QtPlotWindow& window = draw("VOR_KEL: Citt\xE0");
  EXPECT_EQ(window.windowTitle(), QString::fromUtf8("VOR_KEL: Città"));
  EXPECT_EQ(window.accessibleName(), window.windowTitle());
  EXPECT_EQ(window.objectName(), "GralFrm");
  // half of 16360 x 11420 twips, in whole pixels
  EXPECT_EQ(window.size(), QSize(545, 381));
  EXPECT_TRUE(window.isVisible());
  EXPECT_EQ(draw("x", "PORTRAIT").size(), QSize(381, 545));
}

TEST_F(PlotWindowTest, StandsAt500Twips) {
  EXPECT_EQ(draw().pos(), QPoint(33, 33));
}

/// Eight figures in steps of 450 twips.
TEST_F(PlotWindowTest, FiguresStepAsideOfThoseThatStandThereAndTheNinthStartsAgain) {
  std::vector<QPoint> places;
  for (int i = 0; i < 10; ++i) places.push_back(draw().pos());
  for (int i = 0; i < 8; ++i) EXPECT_EQ(places.at(i), QPoint(33 + 30 * i, 33 + 30 * i)) << i;
  EXPECT_EQ(places.at(8), QPoint(33, 33));
  EXPECT_EQ(places.at(9), QPoint(63, 63));
}

TEST_F(PlotWindowTest, APlaceThatWasLeftIsTakenAgain) {
  draw();
  QtPlotWindow& moved = draw();
  draw().close();
  moved.move(400, 300);
  EXPECT_EQ(draw().pos(), QPoint(63, 63));
  EXPECT_EQ(draw().pos(), QPoint(93, 93));
}

TEST_F(PlotWindowTest, ShowsWhatWasDrawn) {
  QtPlotWindow& window = draw();
  EXPECT_EQ(pixelAt(&window, {250, 150}), QColor(Qt::black));
  EXPECT_EQ(pixelAt(&window, {10, 10}), QColor(Qt::white));
  EXPECT_EQ(pixelAt(&window, {540, 375}), QColor(Qt::white));
}

TEST_F(PlotWindowTest, ShowsChangesWhileACommandRuns) {
  QtPlotWindow& window = draw();
  QTest::qWait(50);
  window.device().FilledBox(300, 300, 900, 900, Colour::fromBgr(0x0000FF));
  window.device().Refresh();
  // No event loop of ours has run since, and nothing here asks the window to paint.
  const QImage shown = window.screen()->grabWindow(window.winId(), 40, 40, 1, 1).toImage();
  EXPECT_EQ(shown.pixelColor(0, 0), QColor(Qt::red));
}

TEST_F(PlotWindowTest, KeepsItsPictureWhenHiddenAndShownAgain) {
  QtPlotWindow& window = draw();
  const QImage before = window.grab().toImage();
  window.device().Hide();
  EXPECT_FALSE(window.isVisible());
  window.device().Show();
  EXPECT_EQ(window.grab().toImage(), before);
}

TEST_F(PlotWindowTest, ClickRunsTheRoutine) {
  QtPlotWindow& window = draw();
  int clicks = 0;
  window.setClickRoutine([&] { ++clicks; });
  QTest::mouseClick(&window, Qt::LeftButton, Qt::NoModifier, QPoint(100, 100));
  EXPECT_EQ(clicks, 1);
}

TEST_F(PlotWindowTest, EnterSpaceAndTheMenuKeyAreClicks) {
  QtPlotWindow& window = draw();
  int clicks = 0;
  window.setClickRoutine([&] { ++clicks; });
  window.activateWindow();
  ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
  for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Enter, Qt::Key_Space, Qt::Key_Menu}) {
    clicks = 0;
    QTest::keyClick(window.windowHandle(), key);
    EXPECT_EQ(clicks, 1) << key;
  }
  clicks = 0;
  QTest::keyClick(window.windowHandle(), Qt::Key_A);
  EXPECT_EQ(clicks, 0);
}

TEST_F(PlotWindowTest, AKeyHeldDownIsOneClick) {
  QtPlotWindow& window = draw();
  int clicks = 0;
  window.setClickRoutine([&] { ++clicks; });
  QKeyEvent repeated(QEvent::KeyPress, Qt::Key_Space, Qt::NoModifier, " ", true);
  QApplication::sendEvent(&window, &repeated);
  EXPECT_EQ(clicks, 0);
}

TEST_F(PlotWindowTest, SaysWhatAClickDoes) {
  const QtPlotWindow& window = draw();
  for (const char* word : {"clic", "Invio", "Continua", "Esci", "Copia", "Stampa"}) {
    EXPECT_TRUE(window.toolTip().contains(word)) << word;
  }
  EXPECT_EQ(window.accessibleDescription(), window.toolTip());
}

TEST_F(PlotWindowTest, ClickedWindowIsTheActiveOne) {
  QtPlotWindow& first = draw();
  QtPlotWindow& second = draw();
  EXPECT_EQ(windows.active(), &second);
  PlotWindow* clicked = nullptr;
  first.setClickRoutine([&] { clicked = windows.active(); });
  QTest::mouseClick(&first, Qt::LeftButton, Qt::NoModifier, QPoint(100, 100));
  EXPECT_EQ(clicked, &first);
}

TEST_F(PlotWindowTest, WindowControlHidesIt) {
  QtPlotWindow& window = draw();
  window.close();
  EXPECT_FALSE(window.isVisible());
  EXPECT_FALSE(window.device().Visible());
}

TEST_F(PlotWindowTest, OlderFiguresStayBesideNewOnes) {
  QtPlotWindow& first = draw();
  draw();
  EXPECT_TRUE(first.isVisible());
  EXPECT_EQ(pixelAt(&first, {250, 150}), QColor(Qt::black));
}

TEST_F(PlotWindowTest, HiddenOneIsFreedWhenTheNextIsMade) {
  QtPlotWindow& first = draw();
  QSignalSpy freed(&first, &QObject::destroyed);
  first.close();
  EXPECT_EQ(freed.count(), 0);
  draw();
  EXPECT_EQ(freed.count(), 1);
}

TEST_F(PlotWindowTest, AllAreClosedWithTheProgram) {
  QtPlotWindow& first = draw();
  QSignalSpy freed(&first, &QObject::destroyed);
  draw();
  windows.closeAll();
  EXPECT_EQ(freed.count(), 1);
  EXPECT_EQ(windows.active(), nullptr);
}

TEST_F(PlotWindowTest, CopyIsABitmapWithVectorsBesideIt) {
  QtPlotWindow& window = draw();
  QGuiApplication::clipboard()->setText("before");
  window.copyPicture();
  const QMimeData* content = QGuiApplication::clipboard()->mimeData();
  ASSERT_TRUE(content->hasImage());
  EXPECT_FALSE(content->hasText());
  const QImage image = QGuiApplication::clipboard()->image();
  const int ratio = qCeil(window.devicePixelRatio());  // a copy has whole pixels
  EXPECT_EQ(image.size(), QSize(545, 381) * ratio);
  EXPECT_EQ(image.pixelColor(QPoint(250, 150) * ratio), QColor(Qt::black));
  const QImage png = QImage::fromData(content->data("image/png"), "PNG");
  EXPECT_EQ(png.convertToFormat(QImage::Format_RGB32), image.convertToFormat(QImage::Format_RGB32));
  EXPECT_EQ(png.dotsPerMeterX(), qRound(96 * ratio / 0.0254));
  const QByteArray svg = content->data("image/svg+xml");
  EXPECT_TRUE(svg.startsWith("<?xml"));
  EXPECT_TRUE(svg.contains("<title>" + window.windowTitle().toUtf8() + "</title>"));
  EXPECT_TRUE(content->data("application/pdf").startsWith("%PDF-"));
}

TEST_F(PlotWindowTest, SvgHoldsOnlyWhatIsSeen) {
  QtPlotWindow& window = draw();
  window.device().Cls();
  window.copyPicture();
  EXPECT_FALSE(QGuiApplication::clipboard()->mimeData()->data("image/svg+xml").contains("<path"));
}

}  // namespace
}  // namespace vk
