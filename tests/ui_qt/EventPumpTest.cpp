#include "ui/qt/widgets/EventPump.h"

#include <QApplication>
#include <QLineEdit>
#include <QTimer>

#include "ui_qt/User.h"

namespace vk {
namespace {

class EventPumpTest : public testing::Test {
 protected:
  void SetUp() override { bringToFront(&box); }
  /// A key that waits in the queue.
  void postKey() {
    QCoreApplication::postEvent(&box, new QKeyEvent(QEvent::KeyPress, Qt::Key_A, Qt::NoModifier, "a"));
  }

  QLineEdit box;
  EventPump pump;
};

TEST_F(EventPumpTest, InputThatCameDuringALongComputationIsDropped) {
  pump.repaint();
  postKey();
  pump.dropInput();
  QApplication::processEvents();
  EXPECT_EQ(box.text(), "");
}

TEST_F(EventPumpTest, InputBehindAShortCommandStays) {
  postKey();
  pump.dropInput();
  QApplication::processEvents();
  EXPECT_EQ(box.text(), "a");
}

TEST_F(EventPumpTest, TheWaitCursorTellsALongCommandUntilTheProgramWaitsForTheUser) {
  EventPump impatient(0);
  impatient.repaint();
  ASSERT_NE(QGuiApplication::overrideCursor(), nullptr);
  EXPECT_EQ(QGuiApplication::overrideCursor()->shape(), Qt::WaitCursor);
  impatient.repaint();
  QEventLoop idle;
  QTimer::singleShot(20, &idle, &QEventLoop::quit);
  idle.exec();
  EXPECT_EQ(QGuiApplication::overrideCursor(), nullptr);
}

TEST_F(EventPumpTest, TheWaitCursorCountsTheWorkBeforeTheFirstRepaint) {
  constexpr qint64 kPatience = 20;  // ms
  EventPump patient(kPatience);
  QEventLoop idle;
  bool waiting = false;
  QTimer::singleShot(0, &idle, [&] {
    QTest::qSleep(2 * kPatience);
    patient.repaint();
    waiting = QGuiApplication::overrideCursor() != nullptr;
    idle.quit();
  });
  idle.exec();
  EXPECT_TRUE(waiting);
}

TEST_F(EventPumpTest, WorkThatIsKnownToTakeLongIsToldAtOnce) {
  pump.showWaitCursor();
  ASSERT_NE(QGuiApplication::overrideCursor(), nullptr);
  EXPECT_EQ(QGuiApplication::overrideCursor()->shape(), Qt::WaitCursor);
}

TEST_F(EventPumpTest, AShortCommandKeepsTheCursor) {
  constexpr qint64 kHour = 3'600'000;  // ms
  EventPump patient(kHour);
  patient.repaint();
  EXPECT_EQ(QGuiApplication::overrideCursor(), nullptr);
}

TEST_F(EventPumpTest, PaintsWhatHasChanged) {
  class Painted : public QWidget {
   public:
    int times = 0;

   protected:
    void paintEvent(QPaintEvent*) override { ++times; }
  } window;
  bringToFront(&window);
  QApplication::processEvents();
  const int before = window.times;
  window.update();
  pump.repaint();
  EXPECT_EQ(window.times, before + 1);
}

TEST_F(EventPumpTest, AWindowThatIsNotShownIsAwaitedForHalfASecondOfWork) {
  QWidget window;
  window.winId();
  pump.showWaitCursor();
  QElapsedTimer clock;
  clock.start();
  pump.awaitShowing(window);
  EXPECT_GE(clock.elapsed(), 400);
  EXPECT_NE(QGuiApplication::overrideCursor(), nullptr);
}

}  // namespace
}  // namespace vk
