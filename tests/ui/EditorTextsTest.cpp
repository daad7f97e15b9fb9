#include "tests/ui/EditorFixture.h"

namespace vk {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

TEST_F(EditorTest, EachLineOfThePlainBoxEndsInCrLf) {
  open("a\r\nb");
  EXPECT_EQ(form.text, "a\r\nb\r\n");
  open("a\nb\n");
  EXPECT_EQ(form.text, "a\r\nb\r\n");
}

TEST_F(EditorTest, TheRichControlKeepsAnOpenLastLine) {
  const std::string large(40000, 'a');
  dialogs.press(2);
  open(large + "\nb");
  EXPECT_EQ(form.text, large + "\r\nb");
  form.text += "   ";
  editor.MnuFilSav();
  EXPECT_EQ(files.content.at(kPath), large + "\r\nb   ");
}

TEST_F(EditorTest, LinesAreSavedWithCrLf) {
  EXPECT_EQ(saved("uno\r\ndue\r\n"), "uno\r\ndue\r\n");
  EXPECT_EQ(saved("uno\ndue\n"), "uno\r\ndue\r\n");
  EXPECT_EQ(saved("uno\r\ndue"), "uno\r\ndue\r\n");
}

TEST_F(EditorTest, ATextThatEndsInALineWithoutEndGetsOne) {
  open("");
  form.text = "uno\r\ndue";
  editor.MnuFilSav();
  EXPECT_EQ(files.content.at(kPath), "uno\r\ndue\r\n");
}

TEST_F(EditorTest, BlanksBehindTheLastLineEndDisappearFromTheFile) {
  open("");
  form.text = "uno  \r\n   ";
  editor.MnuFilSav();
  EXPECT_EQ(files.content.at(kPath), "uno  \r\n");
}

TEST_F(EditorTest, LinesOfBlanksStay) {
  EXPECT_EQ(saved("  \r\n\r\n   \r\n"), "  \r\n\r\n   \r\n");
}

TEST_F(EditorTest, ATabBehindTheLastLineEndIsNoBlank) {
  open("");
  form.text = "uno\r\n\t";
  editor.MnuFilSav();
  EXPECT_EQ(files.content.at(kPath), "uno\r\n\t\r\n");
}

TEST_F(EditorTest, AnEmptyTextMakesAnEmptyFile) {
  dialogs.press(1);
  editor.OpenEditor(kPath, kGraphicKind);
  editor.MnuFilSav();
  EXPECT_EQ(files.content.at(kPath), "");
  expectClosed();
}

TEST_F(EditorTest, SingleCrAndLfAreCharactersOfTheirLines) {
  for (const std::string bytes : {"a\rb\r\nc\nd\r\n", "\r\r\n\n\r\n", "a\n\n\r\n\r\r\n"}) {
    EXPECT_EQ(saved(bytes), bytes);
  }
  EXPECT_EQ(saved("a\r"), "a\r\r\n") << "the last line gets its end";
}

TEST_F(EditorTest, TheZeroByteIsACharacter) {
  const std::string bytes("a\0b\r\n", 5);
  EXPECT_EQ(saved(bytes), bytes);
}

TEST_F(EditorTest, DepartureAFileThatCannotBeWrittenGivesWayToOneThatIsNamed) {
  open("vecchio\r\n");
  form.text = "nuovo\r\n";
  files.notWritable.insert(kPath);
  const std::string before = form.caption;
  for (const std::optional<std::string>& name : {std::optional<std::string>(), {"/casa/altro.gra"}}) {
    expectOpen();
    EXPECT_EQ(form.caption, before);
    dialogs.expectBox();
    dialogs.pick(name);
    editor.MnuFilSav();
    EXPECT_EQ(dialogs.fileRequests.back().proposedName, "prova.txt");
  }
  expectClosed();
  EXPECT_EQ(form.caption, "VOR_KEL: Modifica File Grafico altro.gra");
  EXPECT_EQ(files.content["/casa/altro.gra"], "nuovo\r\n");
  EXPECT_EQ(files.content[kPath], "vecchio\r\n");
}

TEST_F(EditorTest, AFailedWriteIsToldAndKeepsFileAndText) {
  for (const int error : {kDeviceIoError, kPathAccessError, kPermissionDenied}) {
    open("vecchio\r\n", kDataKind);
    form.text = "nuovo\r\n";
    files.writeError[kPath] = error;
    dialogs.boxes.clear();
    dialogs.expectBox();
    editor.MnuFilSav();
    EXPECT_THAT(dialogs.boxes,
                ElementsAre(ScriptedDialogs::Box{"VOR_KEL: Modifica File Dati",
                                                 "Il File Dati: /lavoro/prova.txt NON e` stato Salvato!\n" +
                                                     runtimeErrorText(error) + "     <*> per Continuare"}));
    EXPECT_EQ(files.content.at(kPath), "vecchio\r\n");
    EXPECT_EQ(form.text, "nuovo\r\n");
    EXPECT_THAT(form.calls, ElementsAre("focus"));
    expectOpen();
    EXPECT_THAT(dialogs.messages, IsEmpty()) << "what was not written is not checked";
  }
}

}  // namespace
}  // namespace vk
