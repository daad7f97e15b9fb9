#include <random>

#include "tests/ui/EditorFixture.h"

namespace vk {
namespace {

using namespace std::string_literals;
using testing::ElementsAre;
using testing::IsEmpty;

TEST_F(EditorTest, AMissingFileIsMadeWhenTheUserWantsIt) {
  dialogs.press(1);
  editor.OpenEditor(kPath, kDataKind);
  ASSERT_EQ(dialogs.messages.size(), 1u);
  EXPECT_EQ(dialogs.messages[0].caption, "VOR_KEL: Modifica File");
  EXPECT_EQ(dialogs.messages[0].text, "FILE /lavoro/prova.txt NON Esistente: lo Creo?");
  EXPECT_EQ(dialogs.messages[0].icon, 1);
  EXPECT_EQ(dialogs.messages[0].captions, (std::vector<WindowText>{"  &Si  ", "  &No  "}));
  EXPECT_EQ(form.text, "");
  EXPECT_EQ(form.control, EditControl::kTxtEdiOld);
  EXPECT_THAT(files.written, IsEmpty());
  expectOpen();
}

TEST_F(EditorTest, AMissingFileThatIsNotWantedOpensNothing) {
  dialogs.press(2);
  editor.OpenEditor(kPath, kDataKind);
  expectClosed();
  EXPECT_THAT(window.calls, IsEmpty());
  EXPECT_FALSE(files.FileExists(kPath));
}

TEST_F(EditorTest, AFileOf40000BytesOpensInThePlainBox) {
  open(std::string(40000, 'a'));
  EXPECT_EQ(form.control, EditControl::kTxtEdiOld);
  EXPECT_EQ(editor.control(), EditControl::kTxtEdiOld);
  expectOpen();
}

TEST_F(EditorTest, AFileOf40001BytesIsAskedFor) {
  const struct {
    int kind;
    std::string word;
  } cases[] = {{kDataKind, "Dati"}, {kFunctionKind, "Funzioni"}, {kGraphicKind, "Grafico"}};
  for (const auto& c : cases) {
    dialogs.messages.clear();
    dialogs.press(2);
    open(std::string(40001, 'a'), c.kind);
    ASSERT_EQ(dialogs.messages.size(), 1u);
    EXPECT_EQ(dialogs.messages[0].caption, "VOR_KEL: Modifica File " + c.word);
    EXPECT_EQ(dialogs.messages[0].text,
              "Il File " + c.word +
                  ": /lavoro/prova.txt contiene piu` di 40000 caratteri!\rContinuando la Modifica File sara` "
                  "utilizzato un insieme di caratteri diverso da quello selezionato.");
    EXPECT_EQ(dialogs.messages[0].icon, 1);
    EXPECT_EQ(dialogs.messages[0].captions, (std::vector<WindowText>{"&Rinuncia", "&Continua"}));
    EXPECT_EQ(form.control, EditControl::kTxtEdi);
    expectOpen();
    editor.MnuFilRin();
  }
}

TEST_F(EditorTest, ALargeFileThatIsNotWantedOpensNothing) {
  dialogs.press(1);
  open(std::string(40001, 'a'));
  expectClosed();
}

TEST_F(EditorTest, ASmallFileBehindALargeOneHasThePlainBoxAgain) {
  dialogs.press(2);
  open(std::string(40001, 'a'));
  editor.MnuFilRin();
  open("a\r\n");
  EXPECT_EQ(form.control, EditControl::kTxtEdiOld);
}

TEST_F(EditorTest, AFileInUtf8IsShownAndSavedSo) {
  for (const std::string mark : {"", "\xEF\xBB\xBF"}) {
    const std::string line = "% Velocità È – λ € \u4E16 ±5 µm §\x15\r\n";
    open(mark + line, kGraphicKind);
    EXPECT_TRUE(form.isUtf8);
    EXPECT_EQ(form.text, line);
    form.text += "% più €\r\n";
    editor.MnuFilSav();
    EXPECT_EQ(files.content[kPath], mark + line + "% più €\r\n");
    expectClosed();
  }
}

TEST_F(EditorTest, AnyTextInUtf8ComesBack) {
  const std::u32string signs = U"aZ 9%\t\r\n\0\x15à§ßÈÀ–λ€\u0301\u2028\u4E16\uFEFF\U0001F40D"s;
  std::mt19937 chance(16);
  for (int i = 0; i < 500; ++i) {
    std::string bytes(i % 2 == 0 ? "" : "\xEF\xBB\xBF");
    for (int n = 0; n < 60; ++n) appendUtf8(bytes, signs[chance() % signs.size()]);
    bytes += "È\r\n";
    EXPECT_EQ(saved(bytes), bytes) << testing::PrintToString(bytes);
  }
}

TEST_F(EditorTest, LineEndsOfAFileInUtf8AreThoseOfAnyFile) {
  EXPECT_EQ(saved("È\nλ\n"), "È\r\nλ\r\n");
  EXPECT_EQ(saved("\xEF\xBB\xBF€\r\nÈ"), "\xEF\xBB\xBF€\r\nÈ\r\n");
  EXPECT_EQ(saved("\xEF\xBB\xBF"), "\xEF\xBB\xBF");
  std::string large = "\xEF\xBB\xBF";
  while (large.size() <= 40000) large += "È\r\n";
  dialogs.press(2);
  EXPECT_EQ(saved(large + "€"), large + "€");
}

TEST_F(EditorTest, IntoAFileInUtf8EveryLetterIsPasted) {
  open("È\r\n");
  clipboard.held = "uro";
  clipboard.complete = false;
  clipboard.whole = "€uro";
  editor.MnuModInc();
  EXPECT_EQ(form.text, "€uroÈ\r\n");
  EXPECT_EQ(sound.beeps, 0);
  clipboard.held = "";
  clipboard.whole = "€";
  EXPECT_TRUE(editor.canInsert());
  clipboard.whole = "  ";
  EXPECT_FALSE(editor.canInsert());
  editor.LblChr(0);
  EXPECT_EQ(form.text, "Ç€uroÈ\r\n");
}

TEST_F(EditorTest, WhatIsEnteredInAFileWithoutHighSignsIsSavedInUtf8) {
  open("% a\x15\r\n", kGraphicKind);
  form.text += "% \x85\xE1\r\n";
  editor.MnuFilSav();
  EXPECT_EQ(files.content[kPath], "% a\x15\r\n% àß\r\n");
}

TEST_F(EditorTest, AFileOf8BitSignsStaysOne) {
  open("% \xE0 è\r\n", kGraphicKind);
  EXPECT_EQ(form.text, "% \xE0 è\r\n");
  form.text += "% \x85\r\n";
  editor.MnuFilSav();
  EXPECT_EQ(files.content[kPath], "% \xE0 è\r\n% \x85\r\n");
}

TEST_F(EditorTest, TheCaptionTellsKindAndFile) {
  open("", kDataKind);
  EXPECT_EQ(form.caption, "VOR_KEL: Modifica File Dati prova.txt");
  open("", kFunctionKind);
  EXPECT_EQ(form.caption, "VOR_KEL: Modifica File Funzioni prova.txt");
  open("", kGraphicKind);
  EXPECT_EQ(form.caption, "VOR_KEL: Modifica File Grafico prova.txt");
  EXPECT_EQ(editor.EditFile(), kPath);
}

TEST_F(EditorTest, TheMainWindowIsDisabledBeforeTheEditorShows) {
  files.content[kPath] = "a\r\n";
  editor.OpenEditor(kPath, kDataKind);
  EXPECT_THAT(window.calls, ElementsAre("shut"));
  EXPECT_THAT(form.calls, ElementsAre("show"));
}

TEST_F(EditorTest, AnOpenEditorKeepsItsFileAndItsText) {
  open("uno\r\n", kDataKind);
  form.text = "altro\r\n";
  files.content["/lavoro/secondo.fcn"] = kGoodFunctions;
  editor.OpenEditor("/lavoro/secondo.fcn", kFunctionKind);
  EXPECT_THAT(form.calls, ElementsAre("focus"));
  EXPECT_EQ(form.text, "altro\r\n");
  EXPECT_EQ(editor.EditFile(), kPath);
  EXPECT_THAT(window.holders, ElementsAre(Form::kEditor));
}

TEST_F(EditorTest, ARefusedFileLeavesNoNameBehind) {
  open("uno\r\n", kDataKind);
  editor.MnuFilRin();
  files.content["/lavoro/grande.fcn"] = std::string(40001, 'a');
  dialogs.press(1);
  editor.OpenEditor("/lavoro/grande.fcn", kFunctionKind);
  dialogs.press(2);
  editor.OpenEditor("/lavoro/manca.fcn", kFunctionKind);
  EXPECT_EQ(editor.EditFile(), kPath);
}

TEST_F(EditorTest, AClosedEditorRenewsMenusAndPanels) {
  open("uno\r\n", kDataKind);
  session.loaded.DataDefined = kTrue;
  session.loaded.DataFile = "/lavoro/PROVA.DAT";
  editor.MnuFilRin();
  EXPECT_TRUE(window.menuEnabled[Control::MenDatSav]);
  EXPECT_EQ(window.panels[1], "Dati: PROVA.DAT");
}

TEST_F(EditorTest, AReadErrorShowsNoEditor) {
  for (const int error : {kDeviceIoError, kPermissionDenied, kPathAccessError, kPathNotFound}) {
    files.readError[kPath] = error;
    dialogs.boxes.clear();
    dialogs.expectBox();
    editor.OpenEditor(kPath, kDataKind);
    EXPECT_THAT(dialogs.boxes,
                ElementsAre(ScriptedDialogs::Box{"VOR_KEL: Modifica File Dati",
                                                 "Il File Dati: /lavoro/prova.txt NON puo` essere Letto!\n" +
                                                     runtimeErrorText(error) + "     <*> per Continuare"}));
    expectClosed();
    EXPECT_THAT(form.calls, IsEmpty());
    EXPECT_THAT(window.calls, IsEmpty());
  }
}

TEST_F(EditorTest, RinunciaSavesNothingAndEnablesTheMainWindow) {
  open(kGoodData, kDataKind);
  form.text = "altro\r\n";
  editor.MnuFilRin();
  EXPECT_EQ(files.content.at(kPath), kGoodData);
  EXPECT_THAT(files.written, IsEmpty());
  EXPECT_THAT(form.calls, ElementsAre("hide"));
  EXPECT_THAT(window.calls, ElementsAre("release", "refresh", "front"));
}

TEST_F(EditorTest, CopiaReplacesTheClipboard) {
  open("uno due\r\n");
  clipboard.held = "prima";
  form.SelStart = 4;
  form.SelLength = 3;
  editor.MnuModCop();
  EXPECT_THAT(clipboard.calls, ElementsAre("clear", "text"));
  EXPECT_EQ(clipboard.held, "due");
}

TEST_F(EditorTest, IncollaIsOnOnlyWithTextThatIsNotBlank) {
  EXPECT_FALSE(editor.canInsert());
  clipboard.held = "    ";
  EXPECT_FALSE(editor.canInsert());
  clipboard.held = "  a ";
  EXPECT_TRUE(editor.canInsert());
}

// QUIRK: the selection stays, and the caret before the new text.
TEST_F(EditorTest, IncollaInsertsAtTheStartOfTheSelection) {
  open("uno due\r\n");
  form.SelStart = 4;
  form.SelLength = 3;
  clipboard.held = "e ";
  editor.MnuModInc();
  EXPECT_EQ(form.text, "uno e due\r\n");
  EXPECT_EQ(form.SelStart, 4u);
  EXPECT_EQ(sound.beeps, 0);
}

TEST_F(EditorTest, IncollaBeepsForCharactersWithoutAPlace) {
  open("");
  clipboard.held = "uro";
  clipboard.complete = false;
  editor.MnuModInc();
  EXPECT_EQ(form.text, "uro");
  EXPECT_EQ(sound.beeps, 1);
}

TEST_F(EditorTest, ThePaletteInsertsTheCharacterOfEachCell) {
  for (int cell = 0; cell < 127; ++cell) {
    open("ab\r\n");
    form.SelStart = 1;
    editor.MnuChrIns();
    EXPECT_TRUE(form.palette);
    editor.LblChr(cell);
    EXPECT_EQ(form.text, "a" + std::string(1, static_cast<char>(cell + 128)) + "b\r\n");
    EXPECT_EQ(form.SelStart, 1u) << "the caret stays before the character";
    EXPECT_FALSE(form.palette);
  }
}

// QUIRK: the hard blank cannot be inserted.
TEST_F(EditorTest, TheLastCellOnlyClosesThePalette) {
  open("ab\r\n");
  editor.MnuChrIns();
  editor.LblChr(127);
  EXPECT_EQ(form.text, "ab\r\n");
  EXPECT_FALSE(form.palette);
}

TEST_F(EditorTest, StampaPrintsTheTextInFontEdit) {
  session.settings.FontEdit = {"Courier New", 10};
  printer.orientation = kLandscape;
  open("uno\r\ndue\r\n");
  editor.MnuPri();
  EXPECT_THAT(printer.calls, ElementsAre("text", "end"));
  EXPECT_EQ(printer.text, "uno\r\ndue\r\n");
  EXPECT_EQ(printer.face, "Courier New");
  EXPECT_EQ(printer.points, 10);
  EXPECT_EQ(printer.orientation, kLandscape);
}

TEST_F(EditorTest, StampaSetsTabsOnEveryEighthColumn) {
  open("\ta\r\nabc\t\tb\tc\r\n12345678\t|\r\n");
  editor.MnuPri();
  EXPECT_EQ(printer.text, "        a\r\nabc             b       c\r\n12345678        |\r\n");
  open("\tÈ€\t|\r\n");
  editor.MnuPri();
  EXPECT_EQ(printer.text, "        È€      |\r\n") << "letters have one column";
}

TEST_F(EditorTest, APrinterThatFailsIsTold) {
  open("uno\r\n", kFunctionKind);
  printer.error = kPrinterError;
  dialogs.expectBox();
  editor.MnuPri();
  EXPECT_THAT(dialogs.boxes, ElementsAre(ScriptedDialogs::Box{
                                 "VOR_KEL: Modifica File Funzioni",
                                 "Il File Funzioni: /lavoro/prova.txt NON e` stato Stampato!\n" +
                                     runtimeErrorText(kPrinterError) + "     <*> per Continuare"}));
  expectOpen();
}

}  // namespace
}  // namespace vk
