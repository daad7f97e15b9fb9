#include "ui/Editor.h"

#include "doubles/Doubles.h"
#include "doubles/MemoryFiles.h"
#include "doubles/RecordingEditorForm.h"
#include "doubles/ScriptedDialogs.h"
#include "doubles/ScriptedForms.h"
#include "expr/CmpMod.h"
#include "expr/FunMod.h"
#include "session/Session.h"

namespace vk {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr const char* kGoodData = "x\r\ny\r\n3\r\n0 1 .1\r\n1 3 .1\r\n2 5.1 .1\r\n";
constexpr const char* kBadData = "x\r\ny\r\n3\r\n0 1 .1\r\n1 tre .1\r\n2 5.1 .1\r\n";
constexpr const char* kGoodFunctions = "A,B\r\nA*x+B\r\nretta\r\n";
constexpr const char* kBadFunctions = "A,B\r\nA*x+C\r\nretta\r\n";

class EditorTest : public testing::Test {
 protected:
  EditorTest() {
    editor.setForm(form);
    BuildCatalogue(session);
  }
  void open(const std::string& bytes, int kind = kGraphicKind) {
    if (form.visible) editor.MnuFilRin();
    files.content[kPath] = bytes;
    editor.OpenEditor(kPath, kind);
    form.calls.clear();
    window.calls.clear();
  }
  /// What opening and saving leaves of a file.
  std::string saved(const std::string& bytes) {
    open(bytes);
    editor.MnuFilSav();
    return files.content.at(kPath);
  }
  void expectOpen() {
    EXPECT_TRUE(form.visible);
    EXPECT_FALSE(window.enabled);
  }
  void expectClosed() {
    EXPECT_FALSE(form.visible);
    EXPECT_TRUE(window.enabled);
  }

  static constexpr const char* kPath = "/lavoro/prova.txt";

  Session session;
  MemoryFiles files;
  ScriptedDialogs dialogs;
  RecordingMainWindow window;
  RecordingOutput output;
  RecordingClipboard clipboard;
  RecordingPrinter printer;
  RecordingSound sound;
  RecordingEditorForm form;
  Editor editor{session, {files, dialogs, window, output, clipboard, printer, sound}};
};

// ---- Opening -----------------------------------------------------------------------------------------------

TEST_F(EditorTest, AMissingFileIsMadeWhenTheUserWantsIt) {
  dialogs.press(1);
  editor.OpenEditor(kPath, kDataKind);
  ASSERT_EQ(dialogs.messages.size(), 1u);
  EXPECT_EQ(dialogs.messages[0].caption, "VOR_KEL: Modifica File");
  EXPECT_EQ(dialogs.messages[0].text, "FILE /lavoro/prova.txt NON Esistente: lo Creo?");
  EXPECT_EQ(dialogs.messages[0].icon, 1);
  EXPECT_THAT(dialogs.messages[0].captions, ElementsAre("  &Si  ", "  &No  "));
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
    EXPECT_THAT(dialogs.messages[0].captions, ElementsAre("&Rinuncia", "&Continua"));
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

TEST_F(EditorTest, TheCaptionTellsKindAndFile) {
  open("", kDataKind);
  EXPECT_EQ(form.caption, "VOR_KEL: Modifica File Dati prova.txt");
  open("", kFunctionKind);
  EXPECT_EQ(form.caption, "VOR_KEL: Modifica File Funzioni prova.txt");
  open("", kGraphicKind);
  EXPECT_EQ(form.caption, "VOR_KEL: Modifica File Grafico prova.txt");
  EXPECT_EQ(editor.EditFile(), kPath);
  EXPECT_EQ(session.files.FileKind, kGraphicKind);
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
  EXPECT_EQ(session.files.FileKind, kDataKind);
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

// ---- Texts -------------------------------------------------------------------------------------------------

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

// ---- Check on save -----------------------------------------------------------------------------------------

TEST_F(EditorTest, AGoodFileClosesTheEditorAndEnablesTheMainWindow) {
  for (const auto& [bytes, kind] :
       {std::pair(kGoodData, kDataKind), std::pair(kGoodFunctions, kFunctionKind)}) {
    open(bytes, kind);
    editor.MnuFilSav();
    EXPECT_THAT(form.calls, ElementsAre("hide"));
    EXPECT_THAT(window.calls, ElementsAre("release", "refresh", "front"));
    expectClosed();
    EXPECT_EQ(session.ErrFlag, 0);
  }
}

TEST_F(EditorTest, ErrorsAreToldWithTheFileAndThreeChoices) {
  const struct {
    const char* bytes;
    int kind;
    std::string word;
  } cases[] = {{kBadData, kDataKind, "Dati"}, {kBadFunctions, kFunctionKind, "Funzioni"}};
  for (const auto& c : cases) {
    open(c.bytes, c.kind);
    dialogs.messages.clear();
    dialogs.press(1);
    editor.MnuFilSav();
    ASSERT_EQ(dialogs.messages.size(), 1u);
    EXPECT_EQ(dialogs.messages[0].caption, "VOR_KEL: Modifica File " + c.word);
    EXPECT_EQ(dialogs.messages[0].text, "Errori nel File " + c.word + ": prova.txt !");
    EXPECT_EQ(dialogs.messages[0].icon, 2);
    EXPECT_EQ(dialogs.messages[0].owner, Form::kEditor);
    EXPECT_THAT(dialogs.messages[0].captions,
                ElementsAre("&Continua Modifica", "&Ignora e Esci", "&Visualizza Errori"));
    EXPECT_EQ(files.content.at(kPath), c.bytes) << "it is written before it is checked";
  }
}

TEST_F(EditorTest, DepartureTheCheckSeesALastLineWithoutALineEnd) {
  const std::string large = "%" + std::string(40000, 'a');  // the box for such a file saves what it shows
  for (const char* lineEnd : {"\r\n", "\n"}) {
    std::string bytes;
    for (const std::string& line :
         {large, std::string("x"), std::string("y"), std::string("2"), std::string("1 2 .1")}) {
      bytes += line + lineEnd;
    }
    for (const auto& [last, flag] : {std::pair("2 4 .1", kFalse), std::pair("2 4", kTrue)}) {
      dialogs.press(2);
      open(bytes + last, kDataKind);
      if (flag != kFalse) dialogs.press(2);
      editor.MnuFilSav();
      EXPECT_EQ(session.ErrFlag, flag) << last;
      expectClosed();
    }
  }
}

TEST_F(EditorTest, ContinuaModificaStaysInTheEditor) {
  open(kBadData, kDataKind);
  dialogs.press(1);
  editor.MnuFilSav();
  EXPECT_THAT(form.calls, ElementsAre("focus"));
  EXPECT_THAT(output.requests, IsEmpty());
  expectOpen();
}

TEST_F(EditorTest, IgnoraClosesAndLeavesTheErrorsInTheFile) {
  open(kGoodData, kDataKind);
  form.text = kBadData;
  dialogs.press(2);
  editor.MnuFilSav();
  expectClosed();
  EXPECT_EQ(files.content.at(kPath), kBadData);
}

void expectReport(const OutputRequest& report) {
  EXPECT_EQ(report.owner, Form::kEditor);
  EXPECT_EQ(report.rows, 25);
  EXPECT_EQ(report.cols, 80);
  EXPECT_THAT(report.captions, ElementsAre("&Continua", "&Stampa", "Co&pia"));
  EXPECT_EQ(report.caption, "VOR_KEL: Lettura File Dati - ERRORI");
}

TEST_F(EditorTest, VisualizzaShowsTheReportOfTheDataReader) {
  open(kBadData, kDataKind);
  dialogs.press(3);
  editor.MnuFilSav();
  ASSERT_EQ(output.requests.size(), 1u);
  expectReport(output.requests[0]);
  EXPECT_EQ(output.requests[0].text, "***ERR. Linea 5; Dato 2: tre\r\n   Dato NON numerico\r\n");
  expectOpen();
}

// QUIRK: the window of a function file's report bears the caption of data files.
TEST_F(EditorTest, VisualizzaShowsTheReportOfTheFunctionReader) {
  open(kBadFunctions, kFunctionKind);
  dialogs.press(3);
  editor.MnuFilSav();
  ASSERT_EQ(output.requests.size(), 1u);
  expectReport(output.requests[0]);
  const std::string& report = output.requests[0].text;
  EXPECT_NE(report.find("*********** Funzione:      1\r\nParametri:   A,B\r\nDefinizione: A*x+C\r\n"
                        "Descrizione: retta\r\nControllo Funzione:\r\n"),
            std::string::npos)
      << report;
  EXPECT_NE(report.find("* ERR. Errori nella Compilazione\r\n*********** Fine Funzione: 1\r\n\r\n"),
            std::string::npos)
      << report;
  EXPECT_EQ(session.TraceText, "");
  expectOpen();
}

TEST_F(EditorTest, GraphicFilesAreNotChecked) {
  open("\\Nessuno(", kGraphicKind);
  session.ErrFlag = kTrue;
  editor.MnuFilSav();
  expectClosed();
  EXPECT_EQ(session.ErrFlag, 0);
  EXPECT_THAT(dialogs.messages, IsEmpty());
}

TEST_F(EditorTest, TheSwitchesOfTheCheckArePutBack) {
  for (const char* bytes : {kGoodFunctions, kBadFunctions}) {
    for (const int trace : {kFalse, kTrue}) {
      for (const int check : {kFalse, kTrue}) {
        session.TraceEnabled = trace;
        session.CheckFunctions = check;
        open(bytes, kFunctionKind);
        if (bytes == kBadFunctions) dialogs.press(1);
        editor.MnuFilSav();
        EXPECT_EQ(session.TraceEnabled, trace);
        EXPECT_EQ(session.CheckFunctions, check);
      }
    }
  }
}

TEST_F(EditorTest, WhatIsCheckedIsTheTextThatWasSavedNotTheFile) {
  open(kGoodData, kDataKind);
  files.readError[kPath] = kDeviceIoError;
  editor.MnuFilSav();
  EXPECT_EQ(session.ErrFlag, 0);
  EXPECT_TRUE(dialogs.boxes.empty());
}

TEST_F(EditorTest, ACheckThatBreaksOffIsToldAndPutsItsSwitchesBack) {
  open(kGoodFunctions, kFunctionKind);
  std::string names;
  for (int i = 0; i < 40000; ++i) names += "a,";  // more than the compiler can count
  form.text = names + "a\r\nx\r\ntroppi\r\n";
  dialogs.expectBox();
  editor.MnuFilSav();
  EXPECT_THAT(dialogs.boxes,
              ElementsAre(ScriptedDialogs::Box{
                  "VOR_KEL: Modifica File Funzioni",
                  "Il File Funzioni: /lavoro/prova.txt e` stato Salvato, ma NON puo` essere Controllato!\n" +
                      runtimeErrorText(kOverflow) + "     <*> per Continuare"}));
  EXPECT_EQ(session.TraceEnabled, kFalse);
  EXPECT_EQ(session.CheckFunctions, kFalse);
  expectOpen();
}

TEST_F(EditorTest, TheCheckTakesNothingOver) {
  open(kGoodData, kDataKind);
  editor.MnuFilSav();
  EXPECT_EQ(session.loaded.DataDefined, kFalse);
  EXPECT_EQ(session.loaded.DataFile, "Nessuno");
  open(kGoodFunctions, kFunctionKind);
  editor.MnuFilSav();
  EXPECT_EQ(session.loaded.FunFileRead, kFalse);
  EXPECT_EQ(session.loaded.FunFile, "Nessuno");
  EXPECT_TRUE(session.loaded.catalogue.file.entries.empty());
}

TEST_F(EditorTest, TheNextSaveOfAFunctionFileFindsTheSameFile) {
  files.content["/LAVORO/PROVA.TXT"] = "un altro";
  open(kBadFunctions, kFunctionKind);
  dialogs.press(1);
  editor.MnuFilSav();
  form.text = kGoodFunctions;
  editor.MnuFilSav();
  EXPECT_EQ(files.content.at(kPath), kGoodFunctions);
  EXPECT_EQ(files.content.at("/LAVORO/PROVA.TXT"), "un altro");
}

TEST_F(EditorTest, ALoadedModelIsStillThereBehindTheCheck) {
  files.content["/lib.fcn"] = "A\r\nA*x\r\nproporzionale\r\n";
  std::string name = "/lib.fcn";
  ReadFunctionFile(session, files, output, name, kFalse);
  ASSERT_EQ(session.ErrFlag, 0);
  ASSERT_FALSE(loadFunction(session, 1));
  const FunctionDef before = session.analysis.fun;
  session.analysis.fun.InnerIndex = kBuiltInInner + 1;
  session.analysis.fun.OuterIndex = 1;
  TakeFunction(session, before.InnerIndex, before.OuterIndex);
  session.analysis.par.ParValues[1] = 3;
  const double value = EvaluateFunction(session, dialogs, 7);
  EXPECT_EQ(value, 21);
  for (const char* bytes : {kGoodFunctions, kBadFunctions}) {
    open(bytes, kFunctionKind);
    if (bytes == kBadFunctions) dialogs.press(2);
    editor.MnuFilSav();
    EXPECT_EQ(EvaluateFunction(session, dialogs, 7), 21) << bytes;
  }
}

// ---- Menus -------------------------------------------------------------------------------------------------

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
  session.settings.FontEdit = {"Courier New", 10, 255};
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
