#include "commands/FunctionChoice.h"
#include "commands/FunctionFiles.h"
#include "doubles/EvaluateFunction.h"
#include "tests/ui/EditorFixture.h"

namespace vk {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

void expectReport(const OutputRequest& report) {
  EXPECT_EQ(report.owner, Form::kEditor);
  EXPECT_EQ(report.rows, 25);
  EXPECT_EQ(report.cols, 80);
  EXPECT_EQ(report.captions, (std::vector<WindowText>{"&Continua", "&Stampa", "Co&pia"}));
  EXPECT_EQ(report.caption, "VOR_KEL: Lettura File Dati - ERRORI");
}

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
    EXPECT_EQ(dialogs.messages[0].captions,
              (std::vector<WindowText>{"&Continua Modifica", "&Ignora e Esci", "&Visualizza Errori"}));
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
  const std::string_view report = output.requests[0].text.bytes();
  EXPECT_NE(report.find("*********** Funzione:      1\r\nParametri:   A,B\r\nDefinizione: A*x+C\r\n"
                        "Descrizione: retta\r\nControllo Funzione:\r\n"),
            std::string::npos)
      << report;
  EXPECT_NE(report.find("* ERR. Errori nella Compilazione\r\nA*x+C\r\n    ^ \"C\" non e` definita\r\n"
                        "*********** Fine Funzione: 1\r\n\r\n"),
            std::string::npos)
      << report;
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

TEST_F(EditorTest, WhatIsCheckedIsTheTextThatWasSavedNotTheFile) {
  open(kGoodData, kDataKind);
  files.readError[kPath] = kDeviceIoError;
  editor.MnuFilSav();
  EXPECT_EQ(session.ErrFlag, 0);
  EXPECT_TRUE(dialogs.boxes.empty());
}

TEST_F(EditorTest, ACheckThatBreaksOffIsTold) {
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
  ReadFunctionFile(session, files, output, name, {});
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

}  // namespace
}  // namespace vk
