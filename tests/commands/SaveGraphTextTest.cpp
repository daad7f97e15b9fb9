#include "doubles/TestPorts.h"
#include "tests/commands/FigureFixture.h"

namespace vk {
namespace {

struct SavedKind {
  int kind;
  const char* name;
  const char* caption;
  const char* extension;
  const char* text;
};

class SaveGraphTextTest : public FigureFixture {
 protected:
  SaveGraphTextTest() {
    session.loaded.DataFile = "/data/sub.dir/OHM.V2.DAT";
    session.figures.DiffText = "differences\r\n";
    session.figures.GraphText = {"", "one\r\n", "two\r\n", "three\r\n"};
  }
  void save(int kind) { SaveGraphText(session, TestPorts(files, dialogs), kind); }
};

class SavedKinds : public SaveGraphTextTest, public ::testing::WithParamInterface<SavedKind> {};

TEST_P(SavedKinds, ProposeANameUnderTheirCaptionAndWriteTheirText) {
  const SavedKind& wanted = GetParam();
  dialogs.pick("/out/FIG");
  save(wanted.kind);
  ASSERT_EQ(dialogs.fileRequests.size(), 1U);
  const FileRequest& asked = dialogs.fileRequests[0];
  EXPECT_TRUE(asked.save);
  EXPECT_EQ(asked.proposedName, wanted.name);
  EXPECT_EQ(asked.caption, wanted.caption);
  EXPECT_EQ(asked.defaultExtension, wanted.extension);
  EXPECT_EQ(files.content["/out/FIG"], std::string(wanted.text) + "\r\n\r\n");
  EXPECT_EQ(session.ErrFlag, 0);
}

INSTANTIATE_TEST_SUITE_P(
    All, SavedKinds,
    ::testing::Values(SavedKind{0, "OHM.V2_DIF", "VOR_KEL: Salva File Dati (Differenze Dati-Funzione)", "DAT",
                                "differences"},
                      SavedKind{1, "OHM.V2_DAT", "VOR_KEL: Salva File Grafico (Dati)", "GRA", "one"},
                      SavedKind{2, "OHM.V2_FUN", "VOR_KEL: Salva File Grafico (Dati e Funzione)", "GRA",
                                "two"},
                      SavedKind{3, "OHM.V2_DIF", "VOR_KEL: Salva File Grafico (Differenze Dati-Funzione)",
                                "GRA", "three"}));

TEST_F(SaveGraphTextTest, ADataFileWithoutExtensionLendsItsWholeName) {
  session.loaded.DataFile = "/data/sub.dir/SIMULA";
  dialogs.pick(std::nullopt);
  save(1);
  EXPECT_EQ(dialogs.fileRequests[0].proposedName, "SIMULA_DAT");
}

TEST_F(SaveGraphTextTest, ACancelWritesNothing) {
  dialogs.pick(std::nullopt);
  save(2);
  EXPECT_TRUE(files.written.empty());
  EXPECT_EQ(session.ErrFlag, 0);
}

TEST_F(SaveGraphTextTest, AnExistingFileIsReplacedOnlyWhenTheUserSaysSo) {
  files.content["A.GRA"] = "old";
  dialogs.pick("A.GRA");
  dialogs.press(3);
  save(1);
  EXPECT_EQ(files.content["A.GRA"], "old");
  const MessageRequest& asked = dialogs.messages.back();
  EXPECT_EQ(asked.caption, "VOR_KEL: Salva File Grafico (Dati)");
  EXPECT_EQ(asked.text, "FILE  gia` Esistente: Sovrascrivo?");
  EXPECT_EQ(asked.captions, (std::vector<WindowText>{"&Si", "&No", "&Continua"}));

  dialogs.pick("A.GRA");
  dialogs.press(2);
  dialogs.pick("B.GRA");
  save(1);
  EXPECT_EQ(files.content["A.GRA"], "old");
  EXPECT_EQ(files.content["B.GRA"], "one\r\n\r\n");

  dialogs.pick("A.GRA");
  dialogs.press(1);
  save(1);
  EXPECT_EQ(files.content["A.GRA"], "one\r\n\r\n");
}

TEST_F(SaveGraphTextTest, ANameThatCannotBeWrittenIsAskedForAgain) {
  files.notWritable = {"/no/A.GRA"};
  dialogs.pick("/no/A.GRA");
  dialogs.press(1);
  dialogs.pick("/no/A.GRA");
  dialogs.press(1);
  dialogs.pick("A.GRA");
  save(3);
  EXPECT_EQ(dialogs.messages[0].text, "Specificazione File: /no/A.GRA ERRATA!");
  EXPECT_EQ(dialogs.messages[0].captions, (std::vector<WindowText>{"&Riprova", "&Continua"}));
  EXPECT_EQ(files.written, std::vector<std::string>{"A.GRA"});
}

TEST_F(SaveGraphTextTest, TheUserCanGiveUpAfterAFailure) {
  files.notWritable = {"/no/A.GRA"};
  dialogs.pick("/no/A.GRA");
  dialogs.press(2);
  save(0);
  EXPECT_TRUE(files.written.empty());
  EXPECT_EQ(session.ErrFlag, 0);
}

}  // namespace
}  // namespace vk
