#include "ui/qt/widgets/Breath.h"

#include <QApplication>
#include <QLineEdit>
#include <QTimer>

#include "ui_qt/User.h"

namespace vk {
namespace {

class BreathTest : public testing::Test {
 protected:
  void SetUp() override { bringToFront(&box); }
  /// A key that waits in the queue.
  void postKey() {
    QCoreApplication::postEvent(&box, new QKeyEvent(QEvent::KeyPress, Qt::Key_A, Qt::NoModifier, "a"));
  }

  QLineEdit box;
  Breath breath;
};

TEST_F(BreathTest, InputThatCameDuringALongComputationIsDropped) {
  breath.take();
  postKey();
  breath.dropInput();
  QApplication::processEvents();
  EXPECT_EQ(box.text(), "");
}

TEST_F(BreathTest, InputBehindAShortCommandStays) {
  postKey();
  breath.dropInput();
  QApplication::processEvents();
  EXPECT_EQ(box.text(), "a");
}

TEST_F(BreathTest, TheWaitCursorTellsALongCommandUntilTheProgramWaitsForTheUser) {
  Breath impatient(0);
  impatient.take();
  ASSERT_NE(QGuiApplication::overrideCursor(), nullptr);
  EXPECT_EQ(QGuiApplication::overrideCursor()->shape(), Qt::WaitCursor);
  impatient.take();
  QEventLoop idle;
  QTimer::singleShot(20, &idle, &QEventLoop::quit);
  idle.exec();
  EXPECT_EQ(QGuiApplication::overrideCursor(), nullptr);
}

TEST_F(BreathTest, WorkThatIsKnownToTakeLongIsToldAtOnce) {
  breath.tellWork();
  ASSERT_NE(QGuiApplication::overrideCursor(), nullptr);
  EXPECT_EQ(QGuiApplication::overrideCursor()->shape(), Qt::WaitCursor);
}

TEST_F(BreathTest, AShortCommandKeepsTheCursor) {
  constexpr qint64 kHour = 3'600'000;  // ms
  Breath patient(kHour);
  patient.take();
  EXPECT_EQ(QGuiApplication::overrideCursor(), nullptr);
}

TEST_F(BreathTest, PaintsWhatHasChanged) {
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
  breath.take();
  EXPECT_EQ(window.times, before + 1);
}

}  // namespace
}  // namespace vk
