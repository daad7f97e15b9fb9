#include <QInputMethodEvent>

#include "ui_qt/EditorFormFixture.h"

namespace vk {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

/// What comes into the text of the editor, and what is found there.
class EditorTextTest : public EditorFormFixture {};

TEST_F(EditorTextTest, EveryByteComesBackFromBothControls) {
  std::string all;
  for (int code = 0; code < 256; ++code) {
    all += static_cast<char>(code);
    if (code % 32 == 31) all += "\r\n";
  }
  open(all);
  choose("MnuFilSav");
  EXPECT_EQ(saved(), all);

  std::string large;
  while (large.size() <= 40000) large += all;
  dialogs.press(2);
  open(large);
  EXPECT_TRUE(richBox()->isVisible());
  choose("MnuFilSav");
  EXPECT_EQ(saved(), large);
}

TEST_F(EditorTextTest, EveryCharacterOfUtf8ComesBack) {
  std::string all = "\uFEFF";
  for (char32_t c = 0; c < 0x20000; ++c) {
    if (c == 0xD800) c = 0xE000;
    if (c % 64 == 0) all += "\r\n";
    appendUtf8(all, c);
  }
  all += "\r\n";
  EditorBox box(nullptr);
  box.load({all, true});
  EXPECT_TRUE(box.bytes().bytes() == all);
  EXPECT_EQ(box.blockCount(), 0x1F800 / 64 + 2);
}

TEST_F(EditorTextTest, AFileInUtf8IsShownByItsLetters) {
  const std::string line = "\xEF\xBB\xBF% È à – λ € \u4E16 \U0001F40D\r \n|\u2028♪§\r\n";
  open(line);
  EXPECT_EQ(plainBox()->toPlainText().left(16), "% È à – λ € 世 \U0001F40D");
  EXPECT_EQ(plainBox()->blockCount(), 2);
  EXPECT_FALSE(form.grab().isNull());
  choose("MnuFilSav");
  EXPECT_EQ(saved(), line);
}

TEST_F(EditorTextTest, EveryLetterIsTypedAndPastedIntoAFileInUtf8) {
  openLarge("È\r\n");
  write("λ€è");
  onClipboard("a–\r\nÀ♪\u2028");
  key(Qt::Key_V, Qt::ControlModifier);
  choose("MnuModInc");
  choose("MnuChrIns");
  QTest::mouseClick(cell(0), Qt::LeftButton);
  EXPECT_EQ(text().substr(0, text().find("riga")), "λ€èa–\r\nÀ♪\r\nÇa–\r\nÀ♪\r\nÈ\r\n");
  EXPECT_EQ(sound.beeps, 0);
  key(Qt::Key_Home, Qt::ControlModifier);
  for (int i = 0; i < 6; ++i) key(Qt::Key_Right, Qt::ShiftModifier);
  choose("MnuModCop");
  EXPECT_EQ(QGuiApplication::clipboard()->text(), "λ€èa–\n");
}

TEST_F(EditorTextTest, TheNextFileHasItsOwnEncoding) {
  open("È\r\n");
  choose("MnuFilRin");
  open("\x8A\r\n");
  write("€è");
  EXPECT_EQ(text(), "\x8A\x8A\r\n");
  EXPECT_EQ(sound.beeps, 1);
}

TEST_F(EditorTextTest, TypedCharactersAreThoseOfTheCodePage) {
  open("");
  write("è µ²≥½");
  EXPECT_EQ(text(), "\x8A \xE6\xFD\xF2\xAB");
  EXPECT_EQ(sound.beeps, 0);
}

TEST_F(EditorTextTest, ACharacterWithoutAPlaceIsRefusedWithABeep) {
  open("uno\r\n");
  key(Qt::Key_Right, Qt::ShiftModifier);
  write("€");
  EXPECT_EQ(text(), "uno\r\n") << "what is selected stays as well";
  EXPECT_EQ(sound.beeps, 1);
  write("È");
  EXPECT_EQ(text(), "uno\r\n");
  EXPECT_EQ(sound.beeps, 2);
}

TEST_F(EditorTextTest, OfAPastedTextWhatHasAPlaceIsTaken) {
  open("");
  onClipboard("a€b\r\nc");
  key(Qt::Key_V, Qt::ControlModifier);
  EXPECT_EQ(text(), "ab\r\nc");
  EXPECT_EQ(sound.beeps, 1);
}

TEST_F(EditorTextTest, WhatIsCopiedByKeysComesBackByteForByte) {
  for (const std::string line : {"a\xFF\x80\t\x01|\r\n", "È\t\r|\n\u240A\u2028\U0001F40D\r\n"}) {
    open(line);
    key(Qt::Key_A, Qt::ControlModifier);
    key(Qt::Key_C, Qt::ControlModifier);
    key(Qt::Key_Home, Qt::ControlModifier);
    key(Qt::Key_V, Qt::ControlModifier);
    EXPECT_EQ(text(), line + line);
    choose("MnuFilRin");
  }
  EXPECT_EQ(sound.beeps, 0);
}

TEST_F(EditorTextTest, InputMethodsEnterTheSameCharacters) {
  open("");
  for (const char* text : {"ò", "ő"}) {
    QInputMethodEvent event;
    event.setCommitString(text);
    QApplication::sendEvent(plainBox(), &event);
  }
  EXPECT_EQ(text(), "\x95");
  EXPECT_EQ(sound.beeps, 1);
}

TEST_F(EditorTextTest, EnterMakesALineEnd) {
  open("");
  write("a");
  key(Qt::Key_Return);
  write("b");
  key(Qt::Key_Return, Qt::ShiftModifier);
  write("c");
  EXPECT_EQ(text(), "a\r\nb\r\nc");
}

TEST_F(EditorTextTest, WhatWasDoneIsUndoneAndRedone) {
  open("uno\r\n");
  write("due");
  key(Qt::Key_Z, Qt::ControlModifier);
  EXPECT_EQ(text(), "uno\r\n");
  key(Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier);
  EXPECT_EQ(text(), "dueuno\r\n");
  choose("MnuChrIns");
  QTest::mouseClick(cell(0), Qt::LeftButton);
  key(Qt::Key_Z, Qt::ControlModifier);
  EXPECT_EQ(text(), "dueuno\r\n") << "an inserted character is undone by itself";
}

TEST_F(EditorTextTest, AnEarlierFileIsNotBroughtBack) {
  open("uno\r\n");
  write("x");
  choose("MnuFilRin");
  open("due\r\n");
  key(Qt::Key_Z, Qt::ControlModifier);
  EXPECT_EQ(text(), "due\r\n");
}

TEST_F(EditorTextTest, TheNextPlaceIsFoundAndTheSearchGoesRound) {
  open("alfa beta\r\ngamma beta\r\n");
  key(Qt::Key_F, Qt::ControlModifier);
  QWidget* entry = control<QWidget>(&form, "TxtFind");
  ASSERT_EQ(QApplication::focusWidget(), entry);
  write("beta");
  std::vector<int> places;
  const auto notePlace = [&] {
    EXPECT_EQ(plainBox()->textCursor().selectedText(), "beta");
    places.push_back(plainBox()->textCursor().selectionStart());
  };
  for (int i = 0; i < 3; ++i) key(Qt::Key_Return), notePlace();
  key(Qt::Key_Return, Qt::ShiftModifier), notePlace();
  key(Qt::Key_F3), notePlace();
  key(Qt::Key_F3, Qt::ShiftModifier), notePlace();
  EXPECT_THAT(places, ElementsAre(5, 16, 5, 16, 5, 16));
  key(Qt::Key_Escape);
  EXPECT_FALSE(control<QWidget>(&form, "FindBar")->isVisible());
  EXPECT_EQ(QApplication::focusWidget(), plainBox());
}

TEST_F(EditorTextTest, WhatIsNotThereIsTold) {
  openLarge("alfa\r\n");
  key(Qt::Key_F, Qt::ControlModifier);
  write("omega");
  key(Qt::Key_Return);
  EXPECT_EQ(control<QLabel>(&form, "LblFind")->text(), "Non trovato");
  write("!");
  EXPECT_EQ(control<QLabel>(&form, "LblFind")->text(), "");
}

TEST_F(EditorTextTest, WhatIsSelectedIsProposedToBeFound) {
  open("alfa beta\r\n");
  for (int i = 0; i < 4; ++i) key(Qt::Key_Right, Qt::ShiftModifier);
  key(Qt::Key_F, Qt::ControlModifier);
  EXPECT_EQ(control<QLineEdit>(&form, "TxtFind")->text(), "alfa");
}

TEST_F(EditorTextTest, NothingIsSearchedBehindThePalette) {
  open("alfa\r\n");
  choose("MnuChrIns");
  key(Qt::Key_F, Qt::ControlModifier);
  EXPECT_FALSE(control<QWidget>(&form, "FindBar")->isVisible());
  EXPECT_TRUE(paletteShows());
}

}  // namespace
}  // namespace vk
