#include "ui/qt/widgets/TextConversion.h"
#include "ui_qt/EditorFormFixture.h"

namespace vk {
namespace {

class CharacterPaletteTest : public EditorFormFixture {};

TEST_F(CharacterPaletteTest, ThePaletteDisablesTheControl) {
  open("ab\r\n");
  EXPECT_FALSE(paletteShows());
  choose("MnuChrIns");
  EXPECT_TRUE(paletteShows());
  EXPECT_FALSE(plainBox()->isEnabled());
}

TEST_F(CharacterPaletteTest, ThePaletteHas16By8CellsOfTheUpperHalf) {
  open("ab\r\n");
  choose("MnuChrIns");
  const QFontMetrics font(palette()->font());
  int widest = 0;
  for (int i = 0; i < 128; ++i) {
    widest = std::max(widest, font.horizontalAdvance(cell(i)->text()));
    EXPECT_EQ(cell(i)->text(), fromText(Cp437Text(std::string(1, static_cast<char>(i + 128)))));
  }
  const double width = 3 * 15.0 * widest, height = 15.0 * font.height() + 40;
  EXPECT_NEAR(palette()->width(), (16 * width + 300) / 15, 1);
  EXPECT_NEAR(palette()->height(), (8 * height + 300) / 15, 1);
  for (int i = 0; i < 128; ++i) {
    EXPECT_NEAR(cell(i)->x(), (i % 16 * width + 150) / 15, 1) << i;
    EXPECT_NEAR(cell(i)->y(), (i / 16 * height + 200) / 15, 1) << i;
  }
  EXPECT_EQ(cell(0)->text(), "Ç");
  EXPECT_EQ(cell(17)->text(), "æ");
  EXPECT_EQ(cell(102)->text(), "µ");
  EXPECT_EQ(cell(126)->text(), "■");
}

TEST_F(CharacterPaletteTest, AClickInsertsTheCharacterAndTheCaretStaysBeforeIt) {
  for (int i = 0; i < 127; ++i) {
    open("ab\r\n");
    key(Qt::Key_Right);
    choose("MnuChrIns");
    QTest::mouseClick(cell(i), Qt::LeftButton);
    EXPECT_EQ(text(), "a" + std::string(1, static_cast<char>(i + 128)) + "b\r\n");
    EXPECT_EQ(caret(plainBox()), 1);
    EXPECT_FALSE(paletteShows());
    EXPECT_TRUE(plainBox()->isEnabled());
    EXPECT_EQ(QApplication::focusWidget(), plainBox());
    choose("MnuFilRin");
  }
}

TEST_F(CharacterPaletteTest, TheLastCellOnlyClosesThePalette) {
  open("ab\r\n");
  choose("MnuChrIns");
  QTest::mouseClick(cell(127), Qt::LeftButton);
  EXPECT_EQ(text(), "ab\r\n");
  EXPECT_FALSE(paletteShows());
  EXPECT_TRUE(plainBox()->isEnabled());
}

TEST_F(CharacterPaletteTest, ThePaletteInsertsInTheLargeControlToo) {
  openLarge("ab\r\n");
  choose("MnuChrIns");
  EXPECT_FALSE(richBox()->isEnabled());
  QTest::mouseClick(cell(1), Qt::LeftButton);
  EXPECT_EQ(text().substr(0, 5),
            "\x81"
            "ab\r\n");
  EXPECT_TRUE(richBox()->isEnabled());
}

TEST_F(CharacterPaletteTest, KeysChooseInThePaletteToo) {
  open("ab\r\n");
  choose("MnuChrIns");
  key(Qt::Key_Right);
  key(Qt::Key_Down);
  key(Qt::Key_Return);
  EXPECT_EQ(text(),
            "\x91"
            "ab\r\n");
  EXPECT_FALSE(paletteShows());
  choose("MnuChrIns");
  key(Qt::Key_Escape);
  EXPECT_EQ(text(),
            "\x91"
            "ab\r\n");
  EXPECT_FALSE(paletteShows());
}

TEST_F(CharacterPaletteTest, ANewFileFindsThePaletteClosed) {
  open("ab\r\n");
  choose("MnuChrIns");
  choose("MnuFilRin");
  open("cd\r\n");
  EXPECT_FALSE(paletteShows());
  EXPECT_TRUE(plainBox()->isEnabled());
}

}  // namespace
}  // namespace vk
