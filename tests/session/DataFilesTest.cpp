#include "session/DataFiles.h"

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

using Tokens = std::vector<std::string_view>;

constexpr std::size_t kAll = 1000;

TEST(SplitBlanks, SeveralBlanksAreOne) {
  EXPECT_EQ(SplitBlanks("  1   2 3  ", kAll), (Tokens{"1", "2", "3"}));
  EXPECT_EQ(SplitBlanks("1", kAll), (Tokens{"1"}));
}

TEST(SplitBlanks, ATabIsABlank) {
  EXPECT_EQ(SplitBlanks("\t1\t 2\t\t3\t", kAll), (Tokens{"1", "2", "3"}));
}

TEST(SplitBlanks, ACommaDoesNotSeparate) {
  EXPECT_EQ(SplitBlanks("1,2 3", kAll), (Tokens{"1,2", "3"}));
}

TEST(SplitBlanks, BlanksAloneHaveNoTokens) {
  EXPECT_TRUE(SplitBlanks("", kAll).empty());
  EXPECT_TRUE(SplitBlanks("    ", kAll).empty());
}

TEST(SplitBlanks, WhatStandsBehindTheLastTokenThatIsAskedForDoesNotMatter) {
  EXPECT_EQ(SplitBlanks("1 2 3", 2), (Tokens{"1", "2"}));
  EXPECT_TRUE(SplitBlanks("1 2 3", 0).empty());
}

TEST(TranslateDosText, GivesTheMarkupOfEachKnownSign) {
  const std::vector<std::pair<int, std::string>> table{
      {159, "A"},      {171, "1/2"},    {172, "1/4"},    {224, R"(\\a)"}, {225, R"(\\b)"}, {226, R"(\\G)"},
      {227, R"(\\p)"}, {228, R"(\\S)"}, {229, R"(\\s)"}, {230, R"(\\m)"}, {231, R"(\\g)"}, {232, R"(\\f)"},
      {233, R"(\\q)"}, {234, R"(\\W)"}, {235, R"(\\d)"}, {248, "^o"},     {252, "^n"},     {253, "^2"}};
  ASSERT_EQ(table.size(), 18U);
  std::vector<std::string> expected(256, "??");
  for (int i = 0; i < 128; ++i) expected[static_cast<std::size_t>(i)] = std::string{static_cast<char>(i)};
  for (const auto& [byte, text] : table) expected[static_cast<std::size_t>(byte)] = text;
  for (int i = 0; i < 256; ++i) {
    EXPECT_EQ(TranslateDosText(std::string{static_cast<char>(i)}), expected[static_cast<std::size_t>(i)])
        << i;
  }
}

TEST(TranslateDosText, GoesOnBehindTheReplacement) {
  EXPECT_EQ(TranslateDosText("m/s\xFD \xE0\xE0 \xC8"), R"(m/s^2 \\a\\a ??)");
  EXPECT_EQ(TranslateDosText(""), "");
}

class CheckDataFileTest : public testing::Test {
 protected:
  void check(const std::string& bytes) {
    files.content["X.DAT"] = bytes;
    reading = CheckDataFile(session, files, "X.DAT");
  }

  Session session;
  MemoryFiles files;
  DataReading reading;
  const std::string& errors = reading.errors;
  const Int16& declared = reading.declaredCount;
  const Int16& valid = reading.data.NumPnt;
  const Flag& hasXErrors = reading.data.kXpntErr;
};

const std::string kFive = "***ERR. un File Dati DEVE Contenere almeno 5 Linee\r\n";
const std::string kTwo = "***ERR. un File Dati DEVE Contenere almeno 2 Linee di Dati\r\n";

TEST_F(CheckDataFileTest, AGoodFileHasNoErrors) {
  session.ErrFlag = kTrue;
  check(crLf({"t (s)", "s (m)", "2", "1 2 .1", "2 4 .1"}));
  EXPECT_EQ(errors, "");
  EXPECT_EQ(session.ErrFlag, 0);
  EXPECT_EQ(declared, 2);
  EXPECT_EQ(valid, 2);
  EXPECT_EQ(hasXErrors, 0);
}

TEST_F(CheckDataFileTest, AFileWithLineFeedsOnlyReadsLikeItsTwin) {
  check("x\ny\n2 1\n1 2 .1 .2\n2 4 .1 .2\n");
  EXPECT_EQ(errors, "");
  EXPECT_EQ(valid, 2);
  EXPECT_EQ(hasXErrors, -1);
}

TEST_F(CheckDataFileTest, FourSignificantLinesGiveTheFiveLinesErrorThenTheTwoDataLinesError) {
  check(crLf({"x", "y", "1", "1 2 .1"}));
  EXPECT_EQ(errors, kFive + kTwo);
  EXPECT_EQ(session.ErrFlag, -1);
  EXPECT_EQ(valid, 1);
}

TEST_F(CheckDataFileTest, AnEmptyFileHasTheTwoFinalErrors) {
  check("");
  EXPECT_EQ(errors, kFive + kTwo);
  EXPECT_EQ(declared, 0);
  EXPECT_EQ(valid, 0);
}

TEST_F(CheckDataFileTest, CommentsMayStandAnywhereAndDoNotCount) {
  check(crLf({"% a", "", "x", "  % b", "y", "   ", "2", "%", "1 2 .1", "% c", "2 4 .1", "%"}));
  EXPECT_EQ(errors, "");
  EXPECT_EQ(valid, 2);
}

TEST_F(CheckDataFileTest, ACommentMovesTheReportedLineNumber) {
  check(crLf({"x", "y", "3", "1 2 .1", "% comment", "2 4", "3 6 .1"}));
  EXPECT_EQ(errors,
            "***ERR. Linea 6: 2 4\r\n"
            "   le linee Dati DEVONO contenere  3 dati.\r\n");
  EXPECT_EQ(valid, 2);
}

TEST_F(CheckDataFileTest, ATabBeforeThePercentSignIsNoComment) {
  check(crLf({"x", "y", "2", "1 2 .1", "\t% 4 .1", "2 4 .1"}));
  EXPECT_EQ(errors,
            "***ERR. Linea 5; Dato 1: %\r\n"
            "   Dato NON numerico\r\n");
}

TEST_F(CheckDataFileTest, TabsSeparateLikeBlanks) {
  check(crLf({"x", "y", "2\t1", "1\t2  .1\t .2", "\t2 4 .1 .2\t"}));
  EXPECT_EQ(errors, "");
  EXPECT_EQ(hasXErrors, -1);
  EXPECT_EQ(valid, 2);
}

TEST_F(CheckDataFileTest, AThirdLineOfTwoNumbersMarksXErrorsWhateverTheSecond) {
  check(crLf({"x", "y", "12 0", "1 2 .1 .1", "2 4 .1 .1"}));
  EXPECT_EQ(errors, "");
  EXPECT_EQ(declared, 12);
  EXPECT_EQ(hasXErrors, -1);
  EXPECT_EQ(valid, 2);
}

TEST_F(CheckDataFileTest, TheThirdTokenOfTheThirdLineIsNeverLookedAt) {
  check(crLf({"x", "y", "12 3 junk", "1 2 .1 .1", "2 4 .1 .1"}));
  EXPECT_EQ(errors, "");
  check(crLf({"x", "y", "12 3 4", "1 2 .1 .1", "2 4 .1 .1"}));
  EXPECT_EQ(errors, "");
  EXPECT_EQ(declared, 12);
}

TEST_F(CheckDataFileTest, JunkAsTheSecondNumberIsADataErrorAtTokenTwo) {
  check(crLf({"x", "y", "12 junk", "1 2 .1 .1", "2 4 .1 .1"}));
  EXPECT_EQ(errors, "***ERR. Linea 3; Dato 2: junk\r\n   Dato NON numerico\r\n");
  EXPECT_EQ(declared, 12);
  EXPECT_EQ(hasXErrors, -1);
}

TEST_F(CheckDataFileTest, JunkAsTheCountIsADataErrorAtTokenOne) {
  check(crLf({"x", "y", "junk", "1 2 .1", "2 4 .1"}));
  EXPECT_EQ(errors, "***ERR. Linea 3; Dato 1: junk\r\n   Dato NON numerico\r\n");
  EXPECT_EQ(declared, 0);
}

TEST_F(CheckDataFileTest, ADeclaredCountBeyondSixteenBitsIsADataErrorAtTokenOne) {
  check(crLf({"x", "y", "32768", "1 2 .1", "2 4 .1"}));
  EXPECT_EQ(errors, "***ERR. Linea 3; Dato 1: 32768\r\n   Dato NON numerico\r\n");
  check(crLf({"x", "y", "32767", "1 2 .1", "2 4 .1"}));
  EXPECT_EQ(errors, "");
  EXPECT_EQ(declared, 32767);
}

TEST_F(CheckDataFileTest, TheDeclaredCountIsRoundedToTheEvenNeighbour) {
  check(crLf({"x", "y", "2.5", "1 2 .1", "2 4 .1"}));
  EXPECT_EQ(declared, 2);
  check(crLf({"x", "y", "1.2E1", "1 2 .1", "2 4 .1"}));
  EXPECT_EQ(declared, 12);
}

TEST_F(CheckDataFileTest, AThirdLineOfATabHasNoNumber) {
  check(crLf({"x", "y", "\t", "1 2 .1", "2 4 .1"}));
  EXPECT_EQ(errors,
            "***ERR. Linea 3: \t\r\n"
            "   La terza linea NON nulla o commentata DEVE contenere almeno un numero\r\n");
  EXPECT_EQ(hasXErrors, 0);
  EXPECT_EQ(valid, 2);
}

TEST_F(CheckDataFileTest, FourTokensUnderAOneNumberThirdLineGiveTheColumnErrorWithThree) {
  check(crLf({"x", "y", "3", "1 2 .1 .2", "2 4 .1", "3 6 .1"}));
  EXPECT_EQ(errors,
            "***ERR. Linea 4: 1 2 .1 .2\r\n"
            "   le linee Dati DEVONO contenere  3 dati.\r\n");
}

TEST_F(CheckDataFileTest, ThreeTokensUnderATwoNumberThirdLineGiveTheColumnErrorWithFour) {
  check(crLf({"x", "y", "3 1", "  1 2\t.1 ", "2 4 .1 1", "3 6 .1 1"}));
  EXPECT_EQ(errors,
            "***ERR. Linea 4:   1 2\t.1 \r\n"
            "   le linee Dati DEVONO contenere  4 dati.\r\n");
}

TEST_F(CheckDataFileTest, EachTokenThatIsNoNumberIsReported) {
  check(crLf({"x", "y", "3", "a 2 1,5", "2 4 .1", "3 6 .1"}));
  EXPECT_EQ(errors,
            "***ERR. Linea 4; Dato 1: a\r\n"
            "   Dato NON numerico\r\n"
            "***ERR. Linea 4; Dato 3: 1,5\r\n"
            "   Dato NON numerico\r\n");
  EXPECT_EQ(valid, 2);
}

TEST_F(CheckDataFileTest, AllErrorsComeInLineOrderWithTheFinalOnesLast) {
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

TEST_F(CheckDataFileTest, LineNumbersAreNotPaddedAndGrowWithTheFile) {
  std::vector<std::string> lines{"x", "y", "3"};
  for (int i = 0; i < 10000; ++i) lines.emplace_back("1 2 .1");
  lines.emplace_back("1");
  check(crLf(lines));
  EXPECT_EQ(errors, "***ERR. Linea 10004: 1\r\n   le linee Dati DEVONO contenere  3 dati.\r\n");
  EXPECT_EQ(valid, 10000);
}

TEST_F(CheckDataFileTest, DepartureALastPointWithoutALineEndIsAPoint) {
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

TEST_F(CheckDataFileTest, ChangesNothingButTheErrorFlag) {
  session.loaded.DataFile = "OLD.DAT";
  session.loaded.data.kXpntErr = kTrue;
  session.loaded.data.TitleX = "old";
  check(crLf({"x", "y", "2", "1 2 .1", "2 4 .1"}));
  EXPECT_EQ(session.loaded.DataFile, "OLD.DAT");
  EXPECT_EQ(session.loaded.DataDefined, 0);
  EXPECT_EQ(session.loaded.data.NumPnt, 100);
  EXPECT_EQ(session.loaded.data.kXpntErr, -1);
  EXPECT_EQ(session.loaded.data.TitleX, "old");
}

TEST_F(CheckDataFileTest, AMissingFileIsARunTimeErrorWithTheFlagCleared) {
  session.ErrFlag = kTrue;
  EXPECT_EQ(errorOf([&] { CheckDataFile(session, files, "NONE.DAT"); }), kFileNotFound);
  EXPECT_EQ(session.ErrFlag, 0);
}

TEST_F(CheckDataFileTest, BinaryRubbishIsReportedAsItStands) {
  const std::string rubbish("\x01\0\xFF", 3);
  check(crLf({"x", "y", rubbish, rubbish + " 2 .1", "2 4 .1", "3 6 .1"}));
  EXPECT_EQ(errors, "***ERR. Linea 3; Dato 1: " + rubbish + "\r\n   Dato NON numerico\r\n" +
                        "***ERR. Linea 4; Dato 1: " + rubbish + "\r\n   Dato NON numerico\r\n");
}

TEST_F(CheckDataFileTest, AHugeLineIsAnErrorLikeOthers) {
  const std::string huge(1 << 20, '7');
  check(crLf({"x", "y", "3", huge + " 2 .1", "2 4 .1", "3 6 .1"}));
  EXPECT_EQ(errors, "***ERR. Linea 4; Dato 1: " + huge + "\r\n   Dato NON numerico\r\n");
}

std::string manyPoints(int count) {
  std::string text = crLf({"x", "y", std::to_string(count)});
  for (int i = 1; i <= count; ++i) text += std::to_string(i) + " 2 .1\r\n";
  return text;
}

TEST_F(CheckDataFileTest, AFileOfTheLargestCountLoads) {
  check(manyPoints(32767));
  EXPECT_EQ(errors, "");
  EXPECT_EQ(valid, 32767);
  LoadDataFile(session, "X.DAT", std::move(reading));
  EXPECT_EQ(session.loaded.data.NumPnt, 32767);
  EXPECT_EQ(session.loaded.data.Xpnt[32767], 32767);
  EXPECT_EQ(session.loaded.data.NumFunPnt, 65534);
}

const std::string kTooMany = "***ERR. un File Dati NON PUO` Contenere piu` di 32767 Linee di Dati\r\n";

TEST_F(CheckDataFileTest, DepartureOnePointMoreIsAnErrorOfTheList) {
  check(manyPoints(32768).replace(6, 5, "32767"));
  EXPECT_EQ(errors, kTooMany);
  EXPECT_EQ(session.ErrFlag, -1);
  EXPECT_EQ(valid, 32767);
}

TEST_F(CheckDataFileTest, BehindTooManyPointsTheCheckGoesOnToTheEnd) {
  check(manyPoints(32770).replace(6, 5, "32767") + "1 2\r\n7 x 9\r\n");
  EXPECT_EQ(errors,
            "***ERR. Linea 32774: 1 2\r\n   le linee Dati DEVONO contenere  3 dati.\r\n"
            "***ERR. Linea 32775; Dato 2: x\r\n   Dato NON numerico\r\n" +
                kTooMany);
  EXPECT_EQ(valid, 32767);
}

TEST_F(CheckDataFileTest, DepartureALineOfVeryManyNumbersHasTheWrongNumberOfColumns) {
  std::string line;
  for (int i = 0; i < 40000; ++i) line += "1 ";
  check(crLf({"x", "y", "3", line, "2 4 .1", "3 6 .1"}));
  EXPECT_EQ(errors, "***ERR. Linea 4: " + line + "\r\n   le linee Dati DEVONO contenere  3 dati.\r\n");
  check(crLf({"x", "y", line, "2 4 .1 .1", "3 6 .1 .1"}));
  EXPECT_EQ(errors, "");
}

TEST_F(CheckDataFileTest, DepartureAListEndsAfterAThousandErrors) {
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

class LoadDataFileTest : public testing::Test {
 protected:
  void load(const std::string& bytes) {
    files.content["X.DAT"] = bytes;
    LoadDataFile(session, "X.DAT", CheckDataFile(session, files, "X.DAT"));
  }

  Session session;
  MemoryFiles files;
  DataSet& data = session.loaded.data;
};

TEST_F(LoadDataFileTest, FillsTheDataSet) {
  load(crLf({"% c", "t (\xE6s)", "s (m\xFD)", "9", "", "1 2 .1", "% c", "2\t4e1 .2", "-3D-1  +6 .3"}));
  EXPECT_EQ(session.loaded.DataFile, "X.DAT");
  EXPECT_EQ(session.loaded.DataDefined, -1);
  EXPECT_EQ(data.NumPnt, 3);
  EXPECT_EQ(data.TitleX, "t (\\\\ms)");
  EXPECT_EQ(data.TitleY, "s (m^2)");
  EXPECT_EQ(data.Xpnt[1], 1);
  EXPECT_EQ(data.Ypnt[2], 40);
  EXPECT_EQ(data.Xpnt[3], -0.3);
  EXPECT_EQ(data.ErrYpnt[3], 0.3);
}

TEST_F(LoadDataFileTest, WithoutAColumnOfXErrorsTheyAreZero) {
  load(crLf({"x", "y", "2 1", "1 2 3 4", "5 6 7 8"}));
  EXPECT_EQ(data.ErrXpnt[2], 7);
  load(crLf({"x", "y", "2", "1 2 .1", "2 4 .2"}));
  EXPECT_EQ(data.kXpntErr, 0);
  EXPECT_EQ(data.ErrXpnt[1], 0);
  EXPECT_EQ(data.ErrXpnt[2], 0);
}

TEST_F(LoadDataFileTest, TheErrorOfXStandsBetweenYAndTheErrorOfY) {
  load(crLf({"x", "y", "2 1", "1 2 3 4", "5 6 7 8"}));
  EXPECT_EQ(data.kXpntErr, -1);
  EXPECT_EQ(data.Xpnt[2], 5);
  EXPECT_EQ(data.Ypnt[2], 6);
  EXPECT_EQ(data.ErrXpnt[2], 7);
  EXPECT_EQ(data.ErrYpnt[2], 8);
}

TEST_F(LoadDataFileTest, TheCurvesHaveTwiceAsManyPointsAndAtLeastFifty) {
  data.NumOldFun = 7;
  load(manyPoints(24));
  EXPECT_EQ(data.NumFunPnt, 50);
  EXPECT_EQ(data.NumOldFun, 0);
  load(manyPoints(26));
  EXPECT_EQ(data.NumFunPnt, 52);
  for (const Array<double>* curve : {&data.FunX, &data.FunY, &data.OldFunX, &data.OldFunY}) {
    EXPECT_EQ(curve->upper(), 52);
  }
}

TEST_F(LoadDataFileTest, OldPointsAndCurvesAreGone) {
  load(manyPoints(30));
  data.FunX[1] = data.OldFunY[1] = data.ErrEff[1] = 5;
  load(crLf({"x", "y", "2", "1 2 .1", "2 4 .2"}));
  EXPECT_EQ(data.Xpnt.upper(), 2);
  EXPECT_EQ(data.ErrEff.upper(), 2);
  EXPECT_EQ(data.ErrEff[1], 0);
  EXPECT_EQ(data.FunX[1], 0);
  EXPECT_EQ(data.OldFunY[1], 0);
}

TEST_F(LoadDataFileTest, DepartureATitleOfTabsOrBehindOneIsOneThatCanBeWritten) {
  load(crLf({" \t ", "\t% s", "2", "1 2 .1", "2 4 .2"}));
  EXPECT_EQ(data.TitleX, "-");
  EXPECT_EQ(data.TitleY, "- % s");
}

TEST_F(LoadDataFileTest, TitlesKeepWhatTheTabsLeft) {
  load(crLf({" \tx\ta ", "y", "2", "1 2 .1", "2 4 .2"}));
  EXPECT_EQ(data.TitleX, " x a");
}

TEST_F(LoadDataFileTest, ALastCommentOrBlankLineWithoutALineEndDoesNotMatter) {
  for (const char* rest : {"% end", "   "}) {
    load(crLf({"x", "y", "2", "1 2 .1", "2 4 .1"}) + rest);
    EXPECT_EQ(data.Xpnt[2], 2);
  }
}

}  // namespace
}  // namespace vk
