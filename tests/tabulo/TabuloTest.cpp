#include "tabulo/Tabulo.h"

#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>
#include <QTreeWidget>

#include "doubles/Doubles.h"
#include "doubles/MemoryFiles.h"

namespace vk {
namespace {

class TabuloTest : public ::testing::Test {
 protected:
  void SetUp() override {
    window_.show();
    window_.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&window_));
  }

  QLineEdit* line() { return window_.findChild<QLineEdit*>("TxtFor"); }
  QTreeWidget* history() { return window_.findChild<QTreeWidget*>("LstSto"); }
  QTreeWidget* values() { return window_.findChild<QTreeWidget*>("LstVal"); }
  QString error() { return window_.findChild<QLabel*>("LblErr")->text(); }
  void type(const char* text) {
    QTest::keyClicks(line(), text);
    QTest::keyClick(line(), Qt::Key_Return);
  }

  MemoryFiles files_;
  RecordingProcess process_;
  Tabulo window_{files_, process_};
};

TEST_F(TabuloTest, EnterCalculatesAndEmptiesTheLine) {
  EXPECT_TRUE(line()->hasFocus());
  type("A=2.5");
  type("A*2");
  EXPECT_EQ(line()->text(), "");
  ASSERT_EQ(history()->topLevelItemCount(), 2);
  EXPECT_EQ(history()->topLevelItem(1)->text(0), "A*2");
  EXPECT_EQ(history()->topLevelItem(1)->text(1), "5");
  ASSERT_EQ(values()->topLevelItemCount(), 1);
  EXPECT_EQ(values()->topLevelItem(0)->text(1), "2.5");
}

TEST_F(TabuloTest, F1OpensItsPageOfTheManual) {
  QTest::keyClick(line(), Qt::Key_F1);
  EXPECT_EQ(error(), "Manuale NON Trovato!");
  files_.content["/share/vor_kel/manuale/indice.html"] = "";
  files_.content["/share/vor_kel/manuale/20-finestre.html"] = "";
  QTest::keyClick(history(), Qt::Key_F1);
  EXPECT_EQ(process_.shown, std::vector<std::string>{"/share/vor_kel/manuale/20-finestre.html#calcolatrice"});
}

TEST_F(TabuloTest, AWrongFormulaStaysInTheLineAndIsExplained) {
  type("2*q");
  EXPECT_EQ(line()->text(), "2*q");
  EXPECT_EQ(error(), "Variabile q NON definita");
  EXPECT_EQ(history()->topLevelItemCount(), 0);
}

TEST_F(TabuloTest, TheArrowsBringEarlierLinesBack) {
  type("1");
  type("2");
  QTest::keyClick(line(), Qt::Key_Up);
  EXPECT_EQ(line()->text(), "2");
  QTest::keyClick(line(), Qt::Key_Up);
  QTest::keyClick(line(), Qt::Key_Up);
  EXPECT_EQ(line()->text(), "1");
  QTest::keyClick(line(), Qt::Key_Down);
  EXPECT_EQ(line()->text(), "2");
  QTest::keyClick(line(), Qt::Key_Down);
  EXPECT_EQ(line()->text(), "");
}

TEST_F(TabuloTest, EscapeEmptiesTheLine) {
  QTest::keyClicks(line(), "1+1");
  QTest::keyClick(line(), Qt::Key_Escape);
  EXPECT_EQ(line()->text(), "");
  EXPECT_TRUE(window_.isVisible());
}

TEST_F(TabuloTest, TheButtonsWorkByTheirAccessKeys) {
  QTest::keyClicks(line(), "A=1+1");
  QTest::keyClick(&window_, Qt::Key_C, Qt::AltModifier);
  EXPECT_EQ(history()->topLevelItemCount(), 1);
  QTest::keyClick(&window_, Qt::Key_A, Qt::AltModifier);
  EXPECT_EQ(history()->topLevelItemCount(), 0);
  EXPECT_EQ(values()->topLevelItemCount(), 0);
  EXPECT_TRUE(line()->hasFocus());
}

TEST_F(TabuloTest, EveryControlHasANameForAssistiveTools) {
  for (const QWidget* widget : std::initializer_list<QWidget*>{&window_, line(), history(), values()}) {
    EXPECT_FALSE(widget->accessibleName().isEmpty()) << widget->objectName().toStdString();
  }
}

}  // namespace
}  // namespace vk
