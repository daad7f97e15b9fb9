#include "doubles/MemoryFiles.h"
#include "doubles/ScriptedDialogs.h"
#include "session/DataFiles.h"
#include "session/Msg.h"

namespace vk {
namespace {

class ReadDataPlainTest : public testing::Test {
 protected:
  ReadDataPlainTest() {
    data.allocate(1, 0);
    data.TitleX = "old";
    data.Xpnt[1] = 99;
  }

  void read(const std::string& bytes, Flag showMessage = 0) {
    files.content["X.DAT"] = bytes;
    std::string name = "X.DAT";
    ReadDataPlain(session, files, dialogs, name, showMessage);
  }
  void expectOldData() const {
    EXPECT_EQ(data.NumPnt, 1);
    EXPECT_EQ(data.TitleX, "old");
    EXPECT_EQ(data.Xpnt[1], 99);
    EXPECT_EQ(session.ErrFlag, -1);
  }

  Session session;
  DataSet& data = session.loaded.data;
  MemoryFiles files;
  ScriptedDialogs dialogs;
};

TEST_F(ReadDataPlainTest, ReadsTitlesCountAndThreeValuesAPoint) {
  session.ErrFlag = 5;
  read("t (\xE6s)\r\n s \r\n 2 \r\n1 2 .1\r\n3 4 .2\r\n");
  EXPECT_EQ(session.ErrFlag, 0);
  EXPECT_EQ(session.loaded.DataDefined, -1);
  EXPECT_EQ(data.TitleX, "t (\\\\ms)");
  EXPECT_EQ(data.TitleY, " s ");
  EXPECT_EQ(data.NumPnt, 2);
  EXPECT_EQ(data.kXpntErr, 0);
  EXPECT_EQ(data.Xpnt[2], 3);
  EXPECT_EQ(data.Ypnt[2], 4);
  EXPECT_EQ(data.ErrYpnt[2], 0.2);
  EXPECT_EQ(data.ErrXpnt[2], 0);
}

TEST_F(ReadDataPlainTest, ABlankInTheThirdLineMeansFourValuesAPoint) {
  read("x\r\ny\r\n2 0\r\n1 2 3 4\r\n5 6 7 8\r\n");
  EXPECT_EQ(data.kXpntErr, -1);
  EXPECT_EQ(data.Xpnt[2], 5);
  EXPECT_EQ(data.Ypnt[2], 6);
  EXPECT_EQ(data.ErrXpnt[2], 7);
  EXPECT_EQ(data.ErrYpnt[2], 8);
}

TEST_F(ReadDataPlainTest, CommasBlanksAndLineEndsSeparateAndLinesDoNotCount) {
  read("x\r\ny\r\n2\r\n1,2\r\n.1 3\r\n\r\n 4, .2");
  EXPECT_EQ(session.ErrFlag, 0);
  EXPECT_EQ(data.Xpnt[2], 3);
  EXPECT_EQ(data.Ypnt[2], 4);
  EXPECT_EQ(data.ErrYpnt[2], 0.2);
}

TEST_F(ReadDataPlainTest, ValuesBehindTheCountAreNotRead) {
  read("x\r\ny\r\n1\r\n1 2 .1\r\n3 4 .2\r\njunk\r\n");
  EXPECT_EQ(session.ErrFlag, 0);
  EXPECT_EQ(data.NumPnt, 1);
}

TEST_F(ReadDataPlainTest, AFileWithLineFeedsOnlyReadsLikeItsTwin) {
  read("x\ny\n2\n1 2 .1\n3 4 .2\n");
  EXPECT_EQ(session.ErrFlag, 0);
  EXPECT_EQ(data.TitleY, "y");
  EXPECT_EQ(data.Xpnt[2], 3);
}

TEST_F(ReadDataPlainTest, FoldsTheNameToCapitalsInPlace) {
  files.content["/home/u/molla.dat"] = "x\r\ny\r\n1\r\n1 2 .1\r\n";
  session.loaded.DataFile = "/home/u/molla.dat";
  ReadDataPlain(session, files, dialogs, session.loaded.DataFile, 0);
  EXPECT_EQ(session.loaded.DataFile, "/HOME/U/MOLLA.DAT");
  EXPECT_EQ(sessionDisplay(session).panels[0], "Dati: MOLLA.DAT");
  EXPECT_EQ(session.ErrFlag, 0);
  EXPECT_EQ(data.Ypnt[1], 2);
}

TEST_F(ReadDataPlainTest, DepartureTheNameAsItStandsComesBeforeTheFoldedOne) {
  files.content["D.DAT"] = "x\r\ny\r\n1\r\n1 2 .1\r\n";
  files.content["d.dat"] = "x\r\ny\r\n1\r\n1 7 .1\r\n";
  std::string name = "d.dat";
  ReadDataPlain(session, files, dialogs, name, 0);
  EXPECT_EQ(data.Ypnt[1], 7);
  EXPECT_EQ(name, "D.DAT");
}

TEST_F(ReadDataPlainTest, TheCurvesStartAnew) {
  data.NumOldFun = 3;
  read("x\r\ny\r\n1\r\n1 2 .1\r\n");
  EXPECT_EQ(data.NumFunPnt, 50);
  EXPECT_EQ(data.FunX.upper(), 50);
  EXPECT_EQ(data.NumOldFun, 0);
}

TEST_F(ReadDataPlainTest, ACountOfZeroIsToldAndLeavesTheData) {
  dialogs.expectBox();
  read("x\r\ny\r\n0\r\n1 2 .1\r\n", kTrue);
  EXPECT_EQ(dialogs.boxes[0].title, "VOR_KEL");
  EXPECT_EQ(dialogs.boxes[0].text, "Il File contiene 0 Dati.    <*> per Continuare!");
  expectOldData();
}

TEST_F(ReadDataPlainTest, WithoutTheMessageFlagACountOfZeroIsSilent) {
  read("x\r\ny\r\n0\r\n1 2 .1\r\n");
  expectOldData();
}

TEST_F(ReadDataPlainTest, AnUnreadableCountLeavesTheData) {
  for (const char* bytes : {"", "x\r\ny\r\n", "x\r\ny\r\njunk\r\n1 2 3\r\n", "x\r\ny\r\n-2\r\n1 2 3\r\n",
                            "x\r\ny\r\n40000\r\n1 2 3\r\n", "\xFF\x01"}) {
    session.ErrFlag = 0;
    read(bytes);
    expectOldData();
  }
}

TEST_F(ReadDataPlainTest, AMissingFileSetsTheFlagAndTheDataCanBeReadAgain) {
  std::string missing = "none.dat";
  ReadDataPlain(session, files, dialogs, missing, kTrue);
  expectOldData();
  read("x\r\ny\r\n1\r\n1 2 .1\r\n");
  EXPECT_EQ(session.ErrFlag, 0);
  EXPECT_EQ(data.Ypnt[1], 2);
}

TEST_F(ReadDataPlainTest, ReadsACommentedFileOnceMoreWithoutItsComments) {
  read("% measured in July\r\n\r\nx\r\ny\r\n% count\r\n2\r\n1\t2 .1\r\n% a point\r\n3 4 .2\r\n");
  EXPECT_EQ(session.ErrFlag, 0);
  EXPECT_EQ(data.TitleX, "x");
  EXPECT_EQ(data.TitleY, "y");
  EXPECT_EQ(data.NumPnt, 2);
  EXPECT_EQ(data.Ypnt[1], 2);
  EXPECT_EQ(data.Xpnt[2], 3);
}

TEST_F(ReadDataPlainTest, ReadsAFileOfDifferences) {
  read(
      "%File Dati Differenze Dati-Funzione\r\n%File Dati: X.DAT\r\n%Funzione : y = bx+c\r\n%Parametri: \r\n"
      "%              b = 0.1000E+01\r\n\r\nx\r\ny\r\n 2\r\n  1.00000E+00 -1.00000E-01   1.00000E-01 \r\n"
      "  2.00000E+00   1.00000E-01   1.00000E-01 \r\n");
  EXPECT_EQ(session.ErrFlag, 0);
  EXPECT_EQ(data.NumPnt, 2);
  EXPECT_EQ(data.Ypnt[1], -0.1);
}

TEST_F(ReadDataPlainTest, ReadsATabInTheThirdLineAsABlank) {
  read("x\r\ny\r\n1\t1\r\n1\t2\t3\t4\r\n");
  EXPECT_EQ(session.ErrFlag, 0);
  EXPECT_EQ(data.kXpntErr, -1);
  EXPECT_EQ(data.ErrXpnt[1], 3);
  EXPECT_EQ(data.ErrYpnt[1], 4);
}

TEST_F(ReadDataPlainTest, ATitleThatBeginsWithADigitIsNoCount) {
  read("% comment\r\nx\r\n1/s\r\n1\r\n1 2 .1\r\n");
  EXPECT_EQ(session.ErrFlag, 0);
  EXPECT_EQ(data.TitleY, "1/s");
  EXPECT_EQ(data.Ypnt[1], 2);
}

TEST_F(ReadDataPlainTest, AValueThatCannotBeReadIsZeroAndTheNextOnesAreRead) {
  read("x\r\ny\r\n2\r\n1 junk .1\r\n3 4 .2\r\n");
  EXPECT_EQ(session.ErrFlag, -1);
  EXPECT_EQ(session.loaded.DataDefined, -1);
  EXPECT_EQ(data.NumPnt, 2);
  EXPECT_EQ(data.Xpnt[1], 1);
  EXPECT_EQ(data.Ypnt[1], 0);
  EXPECT_EQ(data.ErrYpnt[1], 0.1);
  EXPECT_EQ(data.Xpnt[2], 3);
}

TEST_F(ReadDataPlainTest, ValuesMissingAtTheEndAreZero) {
  read("% c\r\nx\r\ny\r\n2\r\n1 2 .1\r\n3");
  EXPECT_EQ(session.ErrFlag, -1);
  EXPECT_EQ(data.TitleX, "x");
  EXPECT_EQ(data.NumPnt, 2);
  EXPECT_EQ(data.Xpnt[2], 3);
  EXPECT_EQ(data.Ypnt[2], 0);
}

TEST_F(ReadDataPlainTest, TheLargestCountLoads) {
  std::string text = "x\r\ny\r\n32767\r\n";
  for (int i = 1; i <= 32767; ++i) text += "1 2 " + std::to_string(i) + "\r\n";
  read(text);
  EXPECT_EQ(session.ErrFlag, 0);
  EXPECT_EQ(data.ErrYpnt[32767], 32767);
  EXPECT_EQ(data.NumFunPnt, 65534);
}

}  // namespace
}  // namespace vk
