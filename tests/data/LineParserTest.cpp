#include "data/DataFiles.h"

#include "doubles/ErrorOf.h"
#include "doubles/MemoryFiles.h"

namespace vk {
namespace {

/// The lines with a carriage return and line feed behind each.
std::string crLf(const std::vector<std::string>& lines) {
  std::string text;
  for (const std::string& line : lines) text += line + "\r\n";
  return text;
}

/// Counts how often files are read.
struct CountingFiles : MemoryFiles {
  std::string readAll(const std::string& path) override {
    ++readings;
    return MemoryFiles::readAll(path);
  }
  int readings = 0;
};

class ParseLines : public testing::Test {
 protected:
  void check(const std::string& bytes) { reading = parseLines(bytes); }

  DataReading reading;
  const std::string& errors = reading.errors;
  const Int16& declared = reading.declaredCount;
  const Int16& valid = reading.data.NumPnt;
  const Flag& hasXErrors = reading.data.kXpntErr;
  const DataSet& data = reading.data;
};

const std::string kFive = "***ERR. un File Dati DEVE Contenere almeno 5 Linee\r\n";
const std::string kTwo = "***ERR. un File Dati DEVE Contenere almeno 2 Linee di Dati\r\n";

TEST_F(ParseLines, AGoodFileHasNoErrors) {
  check(crLf({"t (s)", "s (m)", "2", "1 2 .1", "2 4 .1"}));
  EXPECT_EQ(errors, "");
  EXPECT_EQ(declared, 2);
  EXPECT_EQ(valid, 2);
  EXPECT_EQ(hasXErrors, 0);
}

TEST_F(ParseLines, AFileWithLineFeedsOnlyReadsLikeItsTwin) {
  check("x\ny\n2 1\n1 2 .1 .2\n2 4 .1 .2\n");
  EXPECT_EQ(errors, "");
  EXPECT_EQ(valid, 2);
  EXPECT_EQ(hasXErrors, -1);
}

TEST_F(ParseLines, FourSignificantLinesGiveTheFiveLinesErrorThenTheTwoDataLinesError) {
  check(crLf({"x", "y", "1", "1 2 .1"}));
  EXPECT_EQ(errors, kFive + kTwo);
  EXPECT_EQ(valid, 1);
}

TEST_F(ParseLines, AnEmptyFileHasTheTwoFinalErrors) {
  check("");
  EXPECT_EQ(errors, kFive + kTwo);
  EXPECT_EQ(declared, 0);
  EXPECT_EQ(valid, 0);
}

TEST_F(ParseLines, CommentsMayStandAnywhereAndDoNotCount) {
  check(crLf({"% a", "", "x", "  % b", "y", "   ", "2", "%", "1 2 .1", "% c", "2 4 .1", "%"}));
  EXPECT_EQ(errors, "");
  EXPECT_EQ(valid, 2);
}

TEST_F(ParseLines, ACommentMovesTheReportedLineNumber) {
  check(crLf({"x", "y", "3", "1 2 .1", "% comment", "2 4", "3 6 .1"}));
  EXPECT_EQ(errors,
            "***ERR. Linea 6: 2 4\r\n"
            "   le linee Dati DEVONO contenere  3 dati.\r\n");
  EXPECT_EQ(valid, 2);
}

TEST_F(ParseLines, ATabBeforeThePercentSignIsNoComment) {
  check(crLf({"x", "y", "2", "1 2 .1", "\t% 4 .1", "2 4 .1"}));
  EXPECT_EQ(errors,
            "***ERR. Linea 5; Dato 1: %\r\n"
            "   Dato NON numerico\r\n");
}

TEST_F(ParseLines, TabsSeparateLikeBlanks) {
  check(crLf({"x", "y", "2\t1", "1\t2  .1\t .2", "\t2 4 .1 .2\t"}));
  EXPECT_EQ(errors, "");
  EXPECT_EQ(hasXErrors, -1);
  EXPECT_EQ(valid, 2);
}

TEST_F(ParseLines, AThirdLineOfTwoNumbersMarksXErrorsWhateverTheSecond) {
  check(crLf({"x", "y", "12 0", "1 2 .1 .1", "2 4 .1 .1"}));
  EXPECT_EQ(errors, "");
  EXPECT_EQ(declared, 12);
  EXPECT_EQ(hasXErrors, -1);
  EXPECT_EQ(valid, 2);
}

TEST_F(ParseLines, TheThirdTokenOfTheThirdLineIsNeverLookedAt) {
  check(crLf({"x", "y", "12 3 junk", "1 2 .1 .1", "2 4 .1 .1"}));
  EXPECT_EQ(errors, "");
  check(crLf({"x", "y", "12 3 4", "1 2 .1 .1", "2 4 .1 .1"}));
  EXPECT_EQ(errors, "");
  EXPECT_EQ(declared, 12);
}

TEST_F(ParseLines, JunkAsTheSecondNumberIsADataErrorAtTokenTwo) {
  check(crLf({"x", "y", "12 junk", "1 2 .1 .1", "2 4 .1 .1"}));
  EXPECT_EQ(errors, "***ERR. Linea 3; Dato 2: junk\r\n   Dato NON numerico\r\n");
  EXPECT_EQ(declared, 12);
  EXPECT_EQ(hasXErrors, -1);
}

TEST_F(ParseLines, JunkAsTheCountIsADataErrorAtTokenOne) {
  check(crLf({"x", "y", "junk", "1 2 .1", "2 4 .1"}));
  EXPECT_EQ(errors, "***ERR. Linea 3; Dato 1: junk\r\n   Dato NON numerico\r\n");
  EXPECT_EQ(declared, 0);
}

TEST_F(ParseLines, ADeclaredCountBeyondSixteenBitsIsADataErrorAtTokenOne) {
  check(crLf({"x", "y", "32768", "1 2 .1", "2 4 .1"}));
  EXPECT_EQ(errors, "***ERR. Linea 3; Dato 1: 32768\r\n   Dato NON numerico\r\n");
  check(crLf({"x", "y", "32767", "1 2 .1", "2 4 .1"}));
  EXPECT_EQ(errors, "");
  EXPECT_EQ(declared, 32767);
}

TEST_F(ParseLines, TheDeclaredCountIsRoundedToTheEvenNeighbour) {
  check(crLf({"x", "y", "2.5", "1 2 .1", "2 4 .1"}));
  EXPECT_EQ(declared, 2);
  check(crLf({"x", "y", "1.2E1", "1 2 .1", "2 4 .1"}));
  EXPECT_EQ(declared, 12);
}

TEST_F(ParseLines, AThirdLineOfATabHasNoNumber) {
  check(crLf({"x", "y", "\t", "1 2 .1", "2 4 .1"}));
  EXPECT_EQ(errors,
            "***ERR. Linea 3: \t\r\n"
            "   La terza linea NON nulla o commentata DEVE contenere almeno un numero\r\n");
  EXPECT_EQ(hasXErrors, 0);
  EXPECT_EQ(valid, 2);
}

TEST_F(ParseLines, FourTokensUnderAOneNumberThirdLineGiveTheColumnErrorWithThree) {
  check(crLf({"x", "y", "3", "1 2 .1 .2", "2 4 .1", "3 6 .1"}));
  EXPECT_EQ(errors,
            "***ERR. Linea 4: 1 2 .1 .2\r\n"
            "   le linee Dati DEVONO contenere  3 dati.\r\n");
}

TEST_F(ParseLines, ThreeTokensUnderATwoNumberThirdLineGiveTheColumnErrorWithFour) {
  check(crLf({"x", "y", "3 1", "  1 2\t.1 ", "2 4 .1 1", "3 6 .1 1"}));
  EXPECT_EQ(errors,
            "***ERR. Linea 4:   1 2\t.1 \r\n"
            "   le linee Dati DEVONO contenere  4 dati.\r\n");
}

TEST_F(ParseLines, EachTokenThatIsNoNumberIsReported) {
  check(crLf({"x", "y", "3", "a 2 1,5", "2 4 .1", "3 6 .1"}));
  EXPECT_EQ(errors,
            "***ERR. Linea 4; Dato 1: a\r\n"
            "   Dato NON numerico\r\n"
            "***ERR. Linea 4; Dato 3: 1,5\r\n"
            "   Dato NON numerico\r\n");
  EXPECT_EQ(valid, 2);
}

TEST_F(ParseLines, AllErrorsComeInLineOrderWithTheFinalOnesLast) {
  check(crLf({"x", "y", "q w", "1 2", "a 4 .1 .1"}));
  EXPECT_EQ(errors,
            "***ERR. Linea 3; Dato 1: q\r\n"
            "   Dato NON numerico\r\n"
            "***ERR. Linea 3; Dato 2: w\r\n"
            "   Dato NON numerico\r\n"
            "***ERR. Linea 4: 1 2\r\n"
            "   le linee Dati DEVONO contenere  4 dati.\r\n"
            "***ERR. Linea 5; Dato 1: a\r\n"
            "   Dato NON numerico\r\n" +
                kTwo);
}

TEST_F(ParseLines, LineNumbersAreNotPaddedAndGrowWithTheFile) {
  std::vector<std::string> lines{"x", "y", "3"};
  for (int i = 0; i < 10000; ++i) lines.emplace_back("1 2 .1");
  lines.emplace_back("1");
  check(crLf(lines));
  EXPECT_EQ(errors, "***ERR. Linea 10004: 1\r\n   le linee Dati DEVONO contenere  3 dati.\r\n");
  EXPECT_EQ(valid, 10000);
}

TEST_F(ParseLines, DepartureALastPointWithoutALineEndIsAPoint) {
  for (const char* lineEnd : {"\r\n", "\n"}) {
    std::string text;
    for (const char* line : {"x", "y", "3", "1 2 .1", "2 4 .1"}) text.append(line).append(lineEnd);
    check(text + "3 6 .1");
    EXPECT_EQ(errors, "");
    EXPECT_EQ(valid, 3);
    EXPECT_EQ(reading.data.Ypnt[3], 6);
    check(text + "3 6");
    EXPECT_EQ(errors, "***ERR. Linea 6: 3 6\r\n   le linee Dati DEVONO contenere  3 dati.\r\n");
  }
}

TEST(ReadData, ReadsTheFileOnce) {
  CountingFiles files;
  files.content["X.DAT"] = crLf({"x", "y", "2", "1 2 .1", "2 4 .1"});
  const DataReading reading = readData(files, "X.DAT");
  EXPECT_EQ(reading.errors, "");
  EXPECT_EQ(reading.data.Ypnt[2], 4);
  EXPECT_EQ(files.readings, 1);
}

TEST(ReadData, AMissingFileIsARunTimeError) {
  MemoryFiles files;
  EXPECT_EQ(errorOf([&] { readData(files, "NONE.DAT"); }), kFileNotFound);
}

TEST_F(ParseLines, BinaryRubbishIsReportedAsItStands) {
  const std::string rubbish("\x01\0\xFF", 3);
  check(crLf({"x", "y", rubbish, rubbish + " 2 .1", "2 4 .1", "3 6 .1"}));
  EXPECT_EQ(errors, "***ERR. Linea 3; Dato 1: " + rubbish + "\r\n   Dato NON numerico\r\n" +
                        "***ERR. Linea 4; Dato 1: " + rubbish + "\r\n   Dato NON numerico\r\n");
}

TEST_F(ParseLines, AHugeLineIsAnErrorLikeOthers) {
  const std::string huge(1 << 20, '7');
  check(crLf({"x", "y", "3", huge + " 2 .1", "2 4 .1", "3 6 .1"}));
  EXPECT_EQ(errors, "***ERR. Linea 4; Dato 1: " + huge + "\r\n   Dato NON numerico\r\n");
}

std::string manyPoints(int count) {
  std::string text = crLf({"x", "y", std::to_string(count)});
  for (int i = 1; i <= count; ++i) text += std::to_string(i) + " 2 .1\r\n";
  return text;
}

TEST_F(ParseLines, AFileOfTheLargestCountLoads) {
  check(manyPoints(32767));
  EXPECT_EQ(errors, "");
  EXPECT_EQ(valid, 32767);
  EXPECT_EQ(reading.data.Xpnt[32767], 32767);
}

const std::string kTooMany = "***ERR. un File Dati NON PUO` Contenere piu` di 32767 Linee di Dati\r\n";

TEST_F(ParseLines, DepartureOnePointMoreIsAnErrorOfTheList) {
  check(manyPoints(32768).replace(6, 5, "32767"));
  EXPECT_EQ(errors, kTooMany);
  EXPECT_EQ(valid, 32767);
}

TEST_F(ParseLines, BehindTooManyPointsTheCheckGoesOnToTheEnd) {
  check(manyPoints(32770).replace(6, 5, "32767") + "1 2\r\n7 x 9\r\n");
  EXPECT_EQ(errors,
            "***ERR. Linea 32774: 1 2\r\n   le linee Dati DEVONO contenere  3 dati.\r\n"
            "***ERR. Linea 32775; Dato 2: x\r\n   Dato NON numerico\r\n" +
                kTooMany);
  EXPECT_EQ(valid, 32767);
}

TEST_F(ParseLines, DepartureALineOfVeryManyNumbersHasTheWrongNumberOfColumns) {
  std::string line;
  for (int i = 0; i < 40000; ++i) line += "1 ";
  check(crLf({"x", "y", "3", line, "2 4 .1", "3 6 .1"}));
  EXPECT_EQ(errors, "***ERR. Linea 4: " + line + "\r\n   le linee Dati DEVONO contenere  3 dati.\r\n");
  check(crLf({"x", "y", line, "2 4 .1 .1", "3 6 .1 .1"}));
  EXPECT_EQ(errors, "");
}

TEST_F(ParseLines, DepartureAListEndsAfterAThousandErrors) {
  std::vector<std::string> lines{"x", "y", "3"};
  for (int i = 0; i < 1000; ++i) lines.emplace_back("1 2");
  check(crLf(lines));
  EXPECT_EQ(errors.find("e altri"), std::string::npos);
  EXPECT_TRUE(
      errors.ends_with("***ERR. Linea 1003: 1 2\r\n   le linee Dati DEVONO contenere  3 dati.\r\n" + kTwo));
  lines.insert(lines.end(), 2, "a b c");
  check(crLf(lines));
  EXPECT_TRUE(
      errors.ends_with("***ERR. Linea 1003: 1 2\r\n   le linee Dati DEVONO contenere  3 dati.\r\n"
                       "***ERR. ... e altri 6 errori\r\n" +
                       kTwo));
}

TEST_F(ParseLines, FillsTheDataSet) {
  check(crLf({"% c", "t (\xE6s)", "s (m\xFD)", "9", "", "1 2 .1", "% c", "2\t4e1 .2", "-3D-1  +6 .3"}));
  EXPECT_EQ(data.NumPnt, 3);
  EXPECT_EQ(data.TitleX, "t (\\\\ms)");
  EXPECT_EQ(data.TitleY, "s (m^2)");
  EXPECT_EQ(data.Xpnt[1], 1);
  EXPECT_EQ(data.Ypnt[2], 40);
  EXPECT_EQ(data.Xpnt[3], -0.3);
  EXPECT_EQ(data.ErrYpnt[3], 0.3);
}

TEST_F(ParseLines, WithoutAColumnOfXErrorsTheyAreZero) {
  check(crLf({"x", "y", "2 1", "1 2 3 4", "5 6 7 8"}));
  EXPECT_EQ(data.ErrXpnt[2], 7);
  check(crLf({"x", "y", "2", "1 2 .1", "2 4 .2"}));
  EXPECT_EQ(data.kXpntErr, 0);
  EXPECT_EQ(data.ErrXpnt[1], 0);
  EXPECT_EQ(data.ErrXpnt[2], 0);
}

TEST_F(ParseLines, TheErrorOfXStandsBetweenYAndTheErrorOfY) {
  check(crLf({"x", "y", "2 1", "1 2 3 4", "5 6 7 8"}));
  EXPECT_EQ(data.kXpntErr, -1);
  EXPECT_EQ(data.Xpnt[2], 5);
  EXPECT_EQ(data.Ypnt[2], 6);
  EXPECT_EQ(data.ErrXpnt[2], 7);
  EXPECT_EQ(data.ErrYpnt[2], 8);
}

TEST_F(ParseLines, DepartureATitleOfTabsOrBehindOneIsOneThatCanBeWritten) {
  check(crLf({" \t ", "\t% s", "2", "1 2 .1", "2 4 .2"}));
  EXPECT_EQ(data.TitleX, "-");
  EXPECT_EQ(data.TitleY, "- % s");
}

TEST_F(ParseLines, TitlesKeepWhatTheTabsLeft) {
  check(crLf({" \tx\ta ", "y", "2", "1 2 .1", "2 4 .2"}));
  EXPECT_EQ(data.TitleX, " x a");
}

TEST_F(ParseLines, ALastCommentOrBlankLineWithoutALineEndDoesNotMatter) {
  for (const char* rest : {"% end", "   "}) {
    check(crLf({"x", "y", "2", "1 2 .1", "2 4 .1"}) + rest);
    EXPECT_EQ(data.Xpnt[2], 2);
  }
}

}  // namespace
}  // namespace vk
