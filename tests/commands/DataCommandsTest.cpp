#include "commands/DataCommands.h"

#include <utility>

#include "commands/FilePicking.h"
#include "doubles/Doubles.h"
#include "doubles/ErrorOf.h"
#include "doubles/MemoryFiles.h"
#include "doubles/ScriptedDialogs.h"
#include "doubles/ScriptedForms.h"
#include "doubles/TestPorts.h"

namespace vk {
namespace {

const std::string kGood = "t\r\ns\r\n2\r\n1 2 .1\r\n2 4 .2\r\n";
const std::string kBad = "t\r\ns\r\n2\r\n1 2 .1\r\n2 x .2\r\n3 6 .3\r\n";

class DataCommandsTest : public testing::Test {
 protected:
  void read() { MenDatLet(session, TestPorts(files, dialogs, output, window)); }
  void read(const std::string& name) {
    dialogs.pick(name);
    read();
  }
  void save() { MenDatSav(session, TestPorts(files, dialogs)); }
  void expectMessage(const std::string& caption, const std::string& text, std::vector<WindowText> buttons) {
    ASSERT_EQ(dialogs.messages.size(), 1U);
    EXPECT_EQ(dialogs.messages[0].caption, caption);
    EXPECT_EQ(dialogs.messages[0].text, text);
    EXPECT_EQ(dialogs.messages[0].captions, buttons);
  }

  Session session;
  MemoryFiles files;
  ScriptedDialogs dialogs;
  RecordingOutput output;
  RecordingMainWindow window;
};

TEST_F(DataCommandsTest, AskingForADataFile) {
  files.content["/x/A.DAT"] = kGood;
  read("/x/A.DAT");
  EXPECT_EQ(dialogs.fileRequests[0].caption, "VOR_KEL: Lettura File Dati");
  EXPECT_EQ(dialogs.fileRequests[0].filter, "Tutti i File (*.*)|*.*|File Dati (*.DAT)|*.DAT|");
  EXPECT_FALSE(dialogs.fileRequests[0].save);
}

TEST_F(DataCommandsTest, ACancelLeavesTheDataAndTheCode) {
  dialogs.pick(std::nullopt);
  read();
  EXPECT_EQ(session.ErrFlag, 32755);
  EXPECT_EQ(session.loaded.DataFile, "Nessuno");
  EXPECT_EQ(session.loaded.DataDefined, 0);
  EXPECT_EQ(session.loaded.data.NumPnt, 100);
  EXPECT_EQ(session.files.RecentData.RecentCount, 0);
  EXPECT_EQ(window.panels[1], "Dati: Nessuno");
}

TEST_F(DataCommandsTest, AGoodFileIsTakenOver) {
  files.content["/x/A.DAT"] = kGood;
  session.figures.GraphText = {"", "a", "b", "c"};
  session.figures.DiffText = "d";
  read("/x/A.DAT");
  EXPECT_EQ(session.ErrFlag, 0);
  EXPECT_EQ(session.loaded.DataFile, "/x/A.DAT");
  EXPECT_EQ(session.loaded.DataDefined, -1);
  EXPECT_EQ(session.loaded.data.NumPnt, 2);
  EXPECT_EQ(session.loaded.data.Ypnt[2], 4);
  for (int i = 1; i <= 3; ++i) EXPECT_EQ(session.figures.GraphText[static_cast<std::size_t>(i)], "");
  EXPECT_EQ(session.figures.DiffText, "");
  EXPECT_EQ(session.files.RecentData.files[1], "/x/A.DAT");
  EXPECT_TRUE(window.menuEnabled[Control::MenDatSav]);
  EXPECT_TRUE(window.menuEnabled[Control::MenDatTra]);
  EXPECT_EQ(window.panels[1], "Dati: A.DAT");
  EXPECT_EQ(window.menuCaption[Control::MenDatOld0], "&1 /x/A.DAT");
}

TEST_F(DataCommandsTest, WithErrorsAndLongMessagesTheListIsShown) {
  files.content["/x/A.DAT"] = kBad;
  session.settings.ShowErrors = kTrue;
  read("/x/A.DAT");
  ASSERT_EQ(output.requests.size(), 1U);
  const OutputRequest& request = output.requests[0];
  EXPECT_EQ(request.rows, 25);
  EXPECT_EQ(request.cols, 80);
  EXPECT_EQ(request.captions, (std::vector<WindowText>{"&Continua", "&Stampa", "Co&pia"}));
  EXPECT_EQ(request.caption, "VOR_KEL: Lettura File Dati - ERRORI");
  EXPECT_EQ(request.text, "***ERR. Linea 5; Dato 2: x\r\n   Dato NON numerico\r\n");
  EXPECT_EQ(session.ErrFlag, -1);
}

TEST_F(DataCommandsTest, TheListEndsWithTheLikelyCauseInTheWordsOfTheWindows) {
  const struct {
    const char* text;
    const char* cause;
  } kCases[]{
      {"t;v;e\n1,5;2;0,1\n2,5;4;0,1\n3;6;0,1\n",
       "sembra un file CSV con virgola decimale: trascinarlo sulla finestra principale\r\n"},
      {"a;b;c;d;\x82\n1;2;3;4;5\n2;3;4;5;6\n",
       "5 colonne di numeri: 1 (a), 2 (b), 3 (c), 4 (d), 5 (\x82); indicare quali usare\r\n"
       "  con Colonne x,y[,dx],dy: trascinarlo sulla finestra principale\r\n"},
      {"t\n", "nessuna riga contiene almeno due numeri\r\n"},
  };
  session.settings.ShowErrors = kTrue;
  for (const auto& each : kCases) {
    files.content["/x/A.DAT"] = each.text;
    read("/x/A.DAT");
    EXPECT_TRUE(output.requests.back().text.bytes().ends_with(each.cause))
        << output.requests.back().text.bytes();
  }
}

TEST_F(DataCommandsTest, WithErrorsAndShortMessagesOneQuestionTells) {
  files.content["/x/A.DAT"] = kBad;
  dialogs.press(1);
  read("/x/A.DAT");
  expectMessage("VOR_KEL: Lettura File Dati", "Errori nella Lettura del File Dati: /x/A.DAT!", {"&Continua"});
  EXPECT_EQ(dialogs.messages[0].icon, kExclamation);
  EXPECT_TRUE(output.requests.empty());
}

TEST_F(DataCommandsTest, AFileWithErrorsLeavesTheOldData) {
  files.content["/x/A.DAT"] = kGood;
  files.content["/x/B.DAT"] = kBad;
  read("/x/A.DAT");
  session.figures.GraphText[1] = "drawn";
  dialogs.press(1);
  read("/x/B.DAT");
  EXPECT_EQ(session.loaded.DataFile, "/x/A.DAT");
  EXPECT_EQ(session.loaded.DataDefined, -1);
  EXPECT_EQ(session.loaded.data.NumPnt, 2);
  EXPECT_EQ(session.loaded.data.Ypnt[2], 4);
  EXPECT_EQ(session.figures.GraphText[1], "drawn");
  EXPECT_EQ(session.files.RecentData.RecentCount, 1);
}

TEST_F(DataCommandsTest, AnotherNumberOfPointsThanDeclaredIsAWarningOnly) {
  files.content["/x/A.DAT"] = "t\r\ns\r\n7\r\n1 2 .1\r\n2 4 .2\r\n";
  dialogs.press(1);
  read("/x/A.DAT");
  expectMessage("VOR_KEL: Lettura File Dati", "Numero Dati Dichiarati Diverso da Numero Dati Trovati!",
                {"&Continua"});
  EXPECT_EQ(session.loaded.data.NumPnt, 2);
  EXPECT_EQ(session.loaded.DataDefined, -1);
}

TEST_F(DataCommandsTest, FewerThanTwoPointsAreToldBehindTheWarning) {
  dialogs.press(1);
  dialogs.press(1);
  EXPECT_FALSE(acceptCounts(dialogs, 3, 1));
  EXPECT_EQ(dialogs.messages[0].text, "Numero Dati Dichiarati Diverso da Numero Dati Trovati!");
  EXPECT_EQ(dialogs.messages[1].text, "Il File Contiene Meno di 2 Dati!");
  EXPECT_EQ(dialogs.messages[1].caption, "VOR_KEL: Lettura File Dati");
  EXPECT_EQ(dialogs.messages[1].captions, (std::vector<WindowText>{"&Continua"}));
  EXPECT_TRUE(acceptCounts(dialogs, 2, 2));
}

// QUIRK: a picked recent entry stays picked.
TEST_F(DataCommandsTest, ThePickedPlaceOfTheListIsReadAgainWithoutADialog) {
  files.content["/x/A.DAT"] = kGood;
  files.content["/x/B.DAT"] = kGood;
  read("/x/A.DAT");
  read("/x/B.DAT");
  pickRecentFile(session, kDataKind, 1);
  read();
  EXPECT_EQ(session.loaded.DataFile, "/x/A.DAT");
  EXPECT_EQ(session.files.RecentData.pick, 2);
  read();
  EXPECT_EQ(session.loaded.DataFile, "/x/B.DAT");
  EXPECT_EQ(dialogs.fileRequests.size(), 2U);
  EXPECT_EQ(session.files.RecentData.RecentCount, 4);
}

TEST_F(DataCommandsTest, ARecentEntryIsReadAfterAnEarlierCancel) {
  files.content["/x/A.DAT"] = kGood;
  read("/x/A.DAT");
  dialogs.pick(std::nullopt);
  read();
  pickRecentFile(session, kDataKind, 0);
  read();
  EXPECT_EQ(session.ErrFlag, 0);
  EXPECT_EQ(session.files.RecentData.RecentCount, 2);
}

TEST_F(DataCommandsTest, DepartureALastPointWithoutALineEndIsRead) {
  files.content["/x/A.DAT"] = "t\r\ns\r\n3\r\n1 2 .1\r\n2 4 .2\r\n3 6 .3";
  read("/x/A.DAT");
  EXPECT_TRUE(dialogs.messages.empty());
  EXPECT_EQ(session.loaded.data.NumPnt, 3);
  EXPECT_EQ(session.loaded.data.Ypnt[3], 6);
}

/// Files that another program writes anew as soon as they have been read.
class RestlessFiles : public MemoryFiles {
 public:
  std::string readAll(const std::string& path) override { return std::exchange(content.at(path), "?"); }
};

TEST_F(DataCommandsTest, DepartureAFileIsReadOnceWhateverBecomesOfItMeanwhile) {
  RestlessFiles restless;
  restless.content["/x/A.DAT"] = kGood;
  dialogs.pick("/x/A.DAT");
  MenDatLet(session, TestPorts(restless, dialogs, output, window));
  EXPECT_EQ(session.ErrFlag, 0);
  EXPECT_EQ(session.loaded.data.NumPnt, 2);
  EXPECT_EQ(session.loaded.data.Ypnt[2], 4);
}

TEST_F(DataCommandsTest, ARecentFileThatHasGoneIsARunTimeError) {
  files.content["/x/A.DAT"] = kGood;
  read("/x/A.DAT");
  files.content.clear();
  pickRecentFile(session, kDataKind, 0);
  EXPECT_EQ(errorOf([&] { read(); }), kFileNotFound);
}

TEST_F(DataCommandsTest, SavingAsksForAName) {
  dialogs.pick(std::nullopt);
  session.ErrFlag = 5;
  save();
  EXPECT_EQ(dialogs.fileRequests[0].caption, "VOR_KEL: Salva con Nome File Dati");
  EXPECT_TRUE(dialogs.fileRequests[0].save);
  EXPECT_EQ(dialogs.fileRequests[0].filter, "Tutti i File (*.*)|*.*|File Dati (*.DAT)|*.DAT|");
  EXPECT_EQ(session.ErrFlag, 0);
  EXPECT_TRUE(files.written.empty());
}

TEST_F(DataCommandsTest, SavingWritesTheDataAndGoesOnWithTheFileRead) {
  files.content["/x/A.DAT"] = kGood;
  read("/x/A.DAT");
  dialogs.pick("/y/B.DAT");
  save();
  EXPECT_EQ(files.content["/y/B.DAT"],
            "t\r\ns\r\n 2\r\n"
            "  1.00000E+00   2.00000E+00   1.00000E-01 \r\n"
            "  2.00000E+00   4.00000E+00   2.00000E-01 \r\n");
  EXPECT_EQ(session.loaded.DataFile, "/x/A.DAT");
  EXPECT_EQ(session.files.DataDir, "/x");
  EXPECT_EQ(session.files.RecentData.RecentCount, 1);
  EXPECT_EQ(session.ErrFlag, 0);
}

TEST_F(DataCommandsTest, WhatWasSavedReadsBack) {
  files.content["/x/A.DAT"] = "t\r\ns\r\n2 1\r\n1.234567 2 .1 .3\r\n-2E-7 4 .2 .3\r\n";
  read("/x/A.DAT");
  dialogs.pick("/x/B.DAT");
  save();
  read("/x/B.DAT");
  EXPECT_EQ(session.loaded.data.kXpntErr, -1);
  EXPECT_EQ(session.loaded.data.Xpnt[1], 1.23457);
  EXPECT_EQ(session.loaded.data.Xpnt[2], -2E-7);
  EXPECT_EQ(session.loaded.data.ErrXpnt[2], 0.2);
}

// QUIRK: the question has two blanks and no name.
TEST_F(DataCommandsTest, AnExistingFileIsReplacedOnlyOnYes) {
  files.content["/x/OLD.DAT"] = "old";
  dialogs.pick("/x/OLD.DAT");
  dialogs.press(1);
  save();
  expectMessage("VOR_KEL: Salva con Nome File Dati", "FILE  gia` Esistente: Sovrascrivo?",
                {"&Si", "&No", "&Continua"});
  EXPECT_EQ(dialogs.messages[0].icon, kQuestion);
  EXPECT_EQ(files.written, (std::vector<std::string>{"/x/OLD.DAT"}));
}

TEST_F(DataCommandsTest, NoAsksForAnotherName) {
  files.content["/x/OLD.DAT"] = "old";
  dialogs.pick("/x/OLD.DAT");
  dialogs.press(2);
  dialogs.pick("/x/NEW.DAT");
  save();
  EXPECT_EQ(files.written, (std::vector<std::string>{"/x/NEW.DAT"}));
  EXPECT_EQ(files.content["/x/OLD.DAT"], "old");
}

TEST_F(DataCommandsTest, ContinueStopsTheSaving) {
  files.content["/x/OLD.DAT"] = "old";
  dialogs.pick("/x/OLD.DAT");
  dialogs.press(3);
  save();
  EXPECT_TRUE(files.written.empty());
  EXPECT_EQ(session.ErrFlag, 0);
}

TEST_F(DataCommandsTest, AnUnusableNameIsToldAndCanBeTriedAgain) {
  files.notWritable.insert("/x/NO.DAT");
  dialogs.pick("/x/NO.DAT");
  dialogs.press(1);
  dialogs.pick("/x/NEW.DAT");
  save();
  expectMessage("VOR_KEL: Salva con Nome File Dati", "Specificazione File: /x/NO.DAT ERRATA!",
                {"&Riprova", "&Continua"});
  EXPECT_EQ(files.written, (std::vector<std::string>{"/x/NEW.DAT"}));
}

TEST_F(DataCommandsTest, ContinueAfterAnUnusableNameStopsWithAClearFlag) {
  files.notWritable.insert("/x/NO.DAT");
  dialogs.pick("/x/NO.DAT");
  dialogs.press(2);
  save();
  EXPECT_EQ(session.ErrFlag, 0);
  EXPECT_TRUE(files.written.empty());
}

TEST_F(DataCommandsTest, ADiskThatFailsWhileWritingIsARunTimeError) {
  files.writeError["/x/A.DAT"] = kDeviceIoError;
  dialogs.pick("/x/A.DAT");
  EXPECT_EQ(errorOf([&] { save(); }), kDeviceIoError);
}

TEST_F(DataCommandsTest, AGraphicFileIsOnlyNoted) {
  files.content["/g/A.GRA"] = "whatever";
  files.readError["/g/A.GRA"] = kDeviceIoError;
  dialogs.pick("/g/A.GRA");
  MenGraLetFil(session, TestPorts(files, dialogs, window));
  EXPECT_EQ(dialogs.fileRequests[0].caption, "VOR_KEL: Lettura File Grafico");
  EXPECT_EQ(dialogs.fileRequests[0].filter, "Tutti i File (*.*)|*.*|File Grafici (*.GRA)|*.GRA|");
  EXPECT_EQ(session.loaded.GraFile, "/g/A.GRA");
  EXPECT_EQ(session.loaded.GraDefined, -1);
  EXPECT_EQ(session.files.RecentGra.files[1], "/g/A.GRA");
  EXPECT_TRUE(window.menuEnabled[Control::MenGraVisFil]);
  EXPECT_TRUE(window.menuEnabled[Control::MenGraPriFil]);
  EXPECT_EQ(window.panels[3], "Gra.: A.GRA");
}

TEST_F(DataCommandsTest, ACancelledGraphicFileLeavesTheOldOne) {
  session.loaded.GraFile = "OLD.GRA";
  dialogs.pick(std::nullopt);
  MenGraLetFil(session, TestPorts(files, dialogs, window));
  EXPECT_EQ(session.loaded.GraFile, "OLD.GRA");
  EXPECT_EQ(session.loaded.GraDefined, 0);
  EXPECT_EQ(session.ErrFlag, 32755);
}

// QUIRK: a picked recent entry stays picked.
TEST_F(DataCommandsTest, APickedGraphicFileStaysPicked) {
  addRecentFile(session, window, kGraphicKind, "/g/A.GRA", "/g/A.GRA");
  pickRecentFile(session, kGraphicKind, 0);
  MenGraLetFil(session, TestPorts(files, dialogs, window));
  MenGraLetFil(session, TestPorts(files, dialogs, window));
  EXPECT_EQ(session.files.RecentGra.pick, 1);
  EXPECT_EQ(session.files.RecentGra.RecentCount, 3);
}

}  // namespace
}  // namespace vk
