#include <gtest/gtest.h>

#include "data/DataFiles.h"

namespace vk {
namespace {

class ParseFreeFields : public testing::Test {
 protected:
  void read(const std::string& text) { reading = parseFreeFields(text); }

  FreeFieldReading reading;
  const DataSet& data = reading.data;
};

TEST_F(ParseFreeFields, ReadsTitlesCountAndThreeValuesAPoint) {
  read("t (\xE6s)\r\n s \r\n 2 \r\n1 2 .1\r\n3 4 .2\r\n");
  EXPECT_TRUE(reading.complete);
  EXPECT_EQ(data.TitleX, "t (\\\\ms)");
  EXPECT_EQ(data.TitleY, " s ");
  EXPECT_EQ(data.NumPnt, 2);
  EXPECT_EQ(data.kXpntErr, 0);
  EXPECT_EQ(data.Xpnt[2], 3);
  EXPECT_EQ(data.Ypnt[2], 4);
  EXPECT_EQ(data.ErrYpnt[2], 0.2);
  EXPECT_EQ(data.ErrXpnt[2], 0);
}

TEST_F(ParseFreeFields, ABlankInTheThirdLineMeansFourValuesAPoint) {
  read("x\r\ny\r\n2 0\r\n1 2 3 4\r\n5 6 7 8\r\n");
  EXPECT_EQ(data.kXpntErr, -1);
  EXPECT_EQ(data.Xpnt[2], 5);
  EXPECT_EQ(data.Ypnt[2], 6);
  EXPECT_EQ(data.ErrXpnt[2], 7);
  EXPECT_EQ(data.ErrYpnt[2], 8);
}

TEST_F(ParseFreeFields, CommasBlanksAndLineEndsSeparateAndLinesDoNotCount) {
  read("x\r\ny\r\n2\r\n1,2\r\n.1 3\r\n\r\n 4, .2");
  EXPECT_TRUE(reading.complete);
  EXPECT_EQ(data.Xpnt[2], 3);
  EXPECT_EQ(data.Ypnt[2], 4);
  EXPECT_EQ(data.ErrYpnt[2], 0.2);
}

TEST_F(ParseFreeFields, ValuesBehindTheCountAreNotRead) {
  read("x\r\ny\r\n1\r\n1 2 .1\r\n3 4 .2\r\njunk\r\n");
  EXPECT_TRUE(reading.complete);
  EXPECT_EQ(data.NumPnt, 1);
}

TEST_F(ParseFreeFields, AFileWithLineFeedsOnlyReadsLikeItsTwin) {
  read("x\ny\n2\n1 2 .1\n3 4 .2\n");
  EXPECT_TRUE(reading.complete);
  EXPECT_EQ(data.TitleY, "y");
  EXPECT_EQ(data.Xpnt[2], 3);
}

TEST_F(ParseFreeFields, WithoutAUsableCountThereAreNoData) {
  for (const char* text : {"", "x\r\ny\r\n", "x\r\ny\r\n0\r\n1 2 .1\r\n", "x\r\ny\r\njunk\r\n1 2 3\r\n",
                           "x\r\ny\r\n-2\r\n1 2 3\r\n", "x\r\ny\r\n40000\r\n1 2 3\r\n", "\xFF\x01"}) {
    read(text);
    EXPECT_EQ(reading.count, 0) << text;
    EXPECT_FALSE(reading.complete) << text;
  }
}

TEST_F(ParseFreeFields, ReadsACommentedFileOnceMoreWithoutItsComments) {
  read("% measured in July\r\n\r\nx\r\ny\r\n% count\r\n2\r\n1\t2 .1\r\n% a point\r\n3 4 .2\r\n");
  EXPECT_TRUE(reading.complete);
  EXPECT_EQ(data.TitleX, "x");
  EXPECT_EQ(data.TitleY, "y");
  EXPECT_EQ(data.NumPnt, 2);
  EXPECT_EQ(data.Ypnt[1], 2);
  EXPECT_EQ(data.Xpnt[2], 3);
}

TEST_F(ParseFreeFields, ReadsAFileOfDifferences) {
  read(
      "%File Dati Differenze Dati-Funzione\r\n%File Dati: X.DAT\r\n%Funzione : y = bx+c\r\n%Parametri: \r\n"
      "%              b = 0.1000E+01\r\n\r\nx\r\ny\r\n 2\r\n  1.00000E+00 -1.00000E-01   1.00000E-01 \r\n"
      "  2.00000E+00   1.00000E-01   1.00000E-01 \r\n");
  EXPECT_TRUE(reading.complete);
  EXPECT_EQ(data.NumPnt, 2);
  EXPECT_EQ(data.Ypnt[1], -0.1);
}

TEST_F(ParseFreeFields, ReadsATabInTheThirdLineAsABlank) {
  read("x\r\ny\r\n1\t1\r\n1\t2\t3\t4\r\n");
  EXPECT_TRUE(reading.complete);
  EXPECT_EQ(data.kXpntErr, -1);
  EXPECT_EQ(data.ErrXpnt[1], 3);
  EXPECT_EQ(data.ErrYpnt[1], 4);
}

TEST_F(ParseFreeFields, ATitleThatBeginsWithADigitIsNoCount) {
  read("% comment\r\nx\r\n1/s\r\n1\r\n1 2 .1\r\n");
  EXPECT_TRUE(reading.complete);
  EXPECT_EQ(data.TitleY, "1/s");
  EXPECT_EQ(data.Ypnt[1], 2);
}

TEST_F(ParseFreeFields, AValueThatCannotBeReadIsZeroAndTheNextOnesAreRead) {
  read("x\r\ny\r\n2\r\n1 junk .1\r\n3 4 .2\r\n");
  EXPECT_FALSE(reading.complete);
  EXPECT_EQ(data.NumPnt, 2);
  EXPECT_EQ(data.Xpnt[1], 1);
  EXPECT_EQ(data.Ypnt[1], 0);
  EXPECT_EQ(data.ErrYpnt[1], 0.1);
  EXPECT_EQ(data.Xpnt[2], 3);
}

TEST_F(ParseFreeFields, ValuesMissingAtTheEndAreZero) {
  read("% c\r\nx\r\ny\r\n2\r\n1 2 .1\r\n3");
  EXPECT_FALSE(reading.complete);
  EXPECT_EQ(data.TitleX, "x");
  EXPECT_EQ(data.NumPnt, 2);
  EXPECT_EQ(data.Xpnt[2], 3);
  EXPECT_EQ(data.Ypnt[2], 0);
}

TEST_F(ParseFreeFields, TheLargestCountLoads) {
  std::string text = "x\r\ny\r\n32767\r\n";
  for (int i = 1; i <= 32767; ++i) text += "1 2 " + std::to_string(i) + "\r\n";
  read(text);
  EXPECT_TRUE(reading.complete);
  EXPECT_EQ(data.ErrYpnt[32767], 32767);
}

}  // namespace
}  // namespace vk
