#include <cmath>

#include "GralFixture.h"
#include "base/RuntimeError.h"

namespace vk {
namespace {

/// At 10 points a line is 230 twips high in the fixed letters, a digit or a small letter 120 wide, a capital
/// 140, a narrow sign 60, a Greek letter 120.
constexpr double kHalfTextLine = 115;

class Texts : public GralFixture {
 protected:
  std::vector<TextRun> print(const std::string& text, double centre = 0, int rotation = 0,
                             double points = 10) {
    drawing.GralWinPrintString(1000, 2000, centre, rotation, points, 0, text);
    return letters();
  }
  void expectAt(const TextRun& run, double x, double y) {
    EXPECT_NEAR(run.place.x, x, 0.01) << run.text;
    EXPECT_NEAR(run.place.y, y, 0.01) << run.text;
  }
  static std::string shown(const std::vector<TextRun>& runs) {
    std::string result;
    for (const TextRun& run : runs) result += run.text;
    return result;
  }
};

TEST_F(Texts, AreSetLetterByLetterFromTheTopOfTheLine) {
  const auto runs = print("aM1");
  ASSERT_EQ(runs.size(), 3U);
  expectAt(runs[0], 1000, 2000 - kHalfTextLine);
  expectAt(runs[1], 1120, 2000 - kHalfTextLine);
  expectAt(runs[2], 1300, 2000 - kHalfTextLine);
  for (const TextRun& run : runs) {
    EXPECT_EQ(run.fontName, "Arial");
    EXPECT_EQ(run.size, PointSize(10));
    EXPECT_EQ(run.angle, 0);
  }
}

TEST_F(Texts, ExponentIsThreeQuartersInSizeAndRaisedByAQuarterLine) {
  const auto runs = print("10^{-2}");
  ASSERT_EQ(shown(runs), "10-2");
  expectAt(runs[1], 1120, 1885);
  expectAt(runs[2], 1240, 1885 - kHalfTextLine / 2);
  expectAt(runs[3], 1240 + 0.75 * 120, 1885 - kHalfTextLine / 2);
  EXPECT_EQ(runs[1].size.value(), 10);
  EXPECT_EQ(runs[2].size.value(), 7.5);
  EXPECT_EQ(runs[3].size.value(), 7.5);
}

TEST_F(Texts, TellTheirSizeOnThePage) {
  const TextExtent normal = drawing.GralTextExtent(10, "10^{-2}");
  EXPECT_NEAR(normal.width, (2 * 120 + 0.75 * 2 * 120) / kTwipsPerLogX, 1E-4);
  EXPECT_NEAR(normal.height, 2 * kHalfTextLine / kTwipsPerLogY, 1E-4);
  EXPECT_EQ(drawing.GralTextExtent(10, "").width, 0);
  // On paper as in a form at another scale.
  open(1);
  EXPECT_NEAR(drawing.GralTextExtent(10, "10^{-2}").width, normal.width, 0.02);
}

TEST_F(Texts, ScriptTakesOneCharacterOrAGroup) {
  const auto up = print("a^bc");
  ASSERT_EQ(shown(up), "abc");
  expectAt(up[1], 1120, 1885 - kHalfTextLine / 2);
  expectAt(up[2], 1210, 1885);
  EXPECT_EQ(up[2].size.value(), 10);
  const auto down = print("a_{bc}d");
  ASSERT_EQ(shown(down), "abcd");
  expectAt(down[1], 1120, 1885 + kHalfTextLine / 2);
  expectAt(down[2], 1210, 1885 + kHalfTextLine / 2);
  expectAt(down[3], 1300, 1885);
  const auto one = print("a_bc");
  expectAt(one[1], 1120, 1885 + kHalfTextLine / 2);
  expectAt(one[2], 1210, 1885);
}

TEST_F(Texts, TwoBackslashesTakeTheSymbolFont) {
  const auto one = print("\\\\ab");
  ASSERT_EQ(shown(one), "ab");
  EXPECT_EQ(one[0].fontName, "Symbol");
  EXPECT_EQ(one[1].fontName, "Arial");
  expectAt(one[1], 1120, 1885);
  const auto group = print("\\\\{abc}d");
  ASSERT_EQ(shown(group), "abcd");
  for (int i = 0; i < 3; ++i) EXPECT_EQ(group[static_cast<std::size_t>(i)].fontName, "Symbol");
  EXPECT_EQ(group[3].fontName, "Arial");
}

TEST_F(Texts, SymbolCanBeRaised) {
  const auto runs = print("x^\\\\ab");
  ASSERT_EQ(shown(runs), "xab");
  EXPECT_EQ(runs[1].fontName, "Symbol");
  EXPECT_EQ(runs[1].size.value(), 7.5);
  EXPECT_EQ(runs[2].fontName, "Arial");
  EXPECT_EQ(runs[2].size.value(), 10);
}

TEST_F(Texts, EndOfAGroupEndsScriptAndSymbolTogether) {
  const auto runs = print("x^{\\\\ab}c");
  ASSERT_EQ(shown(runs), "xabc");
  for (const std::size_t i : {1U, 2U}) {
    EXPECT_EQ(runs[i].fontName, "Symbol");
    EXPECT_EQ(runs[i].size.value(), 7.5);
  }
  EXPECT_EQ(runs[3].fontName, "Arial");
  EXPECT_EQ(runs[3].size.value(), 10);
}

TEST_F(Texts, OneBackslashIsAnOrdinaryCharacter) {
  const auto runs = print("a\\b\\");
  EXPECT_EQ(shown(runs), "a\\b\\");
  EXPECT_EQ(runs[2].fontName, "Arial");
}

// QUIRK: a second pair of backslashes leaves the Symbol font on.
TEST_F(Texts, FourBackslashesKeepTheSymbolFont) {
  const auto runs = print("\\\\\\\\abc");
  ASSERT_EQ(shown(runs), "abc");
  for (const TextRun& run : runs) EXPECT_EQ(run.fontName, "Symbol");
}

TEST_F(Texts, ScriptSignAtTheEndPrintsNothing) {
  EXPECT_EQ(shown(print("a^")), "a");
  EXPECT_EQ(shown(print("a_")), "a");
  EXPECT_TRUE(print("^").empty());
}

TEST_F(Texts, BracesNeverPrint) {
  EXPECT_EQ(shown(print("{a}b{c}")), "abc");
  EXPECT_EQ(shown(print("{{a}}")), "a");
  EXPECT_EQ(shown(print("}}")), "");
}

TEST_F(Texts, GroupEndsAtTheFirstBrace) {
  const auto runs = print("^{a{b}c}d");
  ASSERT_EQ(shown(runs), "abcd");
  EXPECT_EQ(runs[1].size.value(), 7.5);
  EXPECT_EQ(runs[2].size.value(), 10);
}

TEST_F(Texts, StartPointFollowsTheJustification) {
  // "ab" is 240 wide, less the last factor 1
  expectAt(print("ab", 0)[0], 1000, 1885);
  expectAt(print("ab", 1)[0], 1000 - 239.0 / 2, 1885);
  expectAt(print("ab", 2)[0], 1000 - 239, 1885);
}

TEST_F(Texts, AnyOtherJustificationCountsAsZero) {
  for (const double other : {3.0, -1.0, 0.5}) expectAt(print("ab", other)[0], 1000, 1885);
}

TEST_F(Texts, LastFactorIsTrimmedFromTheWidth) {
  // 120 + 0.75 * 120 - 0.75
  expectAt(print("a^b", 2)[0], 1000 - 209.25, 1885);
}

TEST_F(Texts, RotatedByARightAngleRunUpwardThroughThePoint) {
  const auto runs = print("abc", 1, 90);
  ASSERT_EQ(runs.size(), 3U);
  const double d = (360 - 1) / 2.0;
  expectAt(runs[0], 1000 - kHalfTextLine, 2000 + d);
  expectAt(runs[1], 1000 - kHalfTextLine, 2000 + d - 120);
  expectAt(runs[2], 1000 - kHalfTextLine, 2000 + d - 240);
  for (const TextRun& run : runs) EXPECT_EQ(run.angle, 90);
}

TEST_F(Texts, ScriptsMoveAcrossARotatedLine) {
  const auto runs = print("a^b_c", 0, 90);
  expectAt(runs[0], 1000 - kHalfTextLine, 2000);
  expectAt(runs[1], 1000 - kHalfTextLine - kHalfTextLine / 2, 1880);
  expectAt(runs[2], 1000 - kHalfTextLine + kHalfTextLine / 2, 1790);
}

TEST_F(Texts, AtSmallAnglesGoAlongTheirLine) {
  const auto runs = print("ab", 0, 30);
  const double a = 30 * 3.1415926 / 180;
  expectAt(runs[0], 1000 - kHalfTextLine * std::sin(a), 2000 - kHalfTextLine * std::cos(a));
  expectAt(runs[1], runs[0].place.x + 120 * std::cos(a), runs[0].place.y - 120 * std::sin(a));
}

TEST_F(Texts, RotatedLettersHaveTheHeightOfTheirFontRecord) {
  // 10 points are -13.33 pixels, 7.5 points -10
  const auto runs = print("a^b", 0, -45);
  EXPECT_EQ(runs[0].angle, -45);
  EXPECT_EQ(runs[0].size.value(), 13 * 15 / 20.0);
  EXPECT_EQ(runs[1].size.value(), 10 * 15 / 20.0);
  EXPECT_EQ(runs[0].fontName, "Arial");
}

/// A form that keeps the font records its letters are written with.
class FontForm : public RecorderDevice {
 public:
  std::vector<FontRecord> records;

 private:
  void text(const TextRun&) override {
    ASSERT_NE(selectedFont(), nullptr);
    records.push_back(*selectedFont());
  }
};

TEST_F(Texts, RotatedLettersAreWrittenWithAFontRecord) {
  FontForm fonts;
  drawing.GralGrStr(fonts, "LANDSCAPE", 2);
  drawing.GralWinPrintString(1000, 2000, 0, 45, 10, 0, "a^\\\\b");
  ASSERT_EQ(fonts.records.size(), 2U);
  FontRecord expected;
  expected.escapement = 450;
  expected.height = -13;
  expected.weight = 400;
  std::string_view("Arial").copy(expected.faceName.data(), 5);
  EXPECT_EQ(fonts.records[0], expected);
  std::string_view("Symbol").copy(expected.faceName.data(), 6);
  expected.height = -10;
  EXPECT_EQ(fonts.records[1], expected);
}

TEST_F(Texts, RotatedFontIsReleased) {
  print("abc", 0, 45);
  // the next handle follows those of the three letters
  EXPECT_EQ(form.CreateFontIndirect({}), 4);
  EXPECT_THROW(form.DeleteObject(3), RuntimeError);
  EXPECT_EQ(form.SelectObject(0), 0);
}

TEST_F(Texts, RotatedLeaveTheFontThatWasSelected) {
  const std::int32_t selected = form.CreateFontIndirect({});
  form.SelectObject(selected);
  print("a", 0, 45);
  EXPECT_EQ(form.SelectObject(0), selected);
}

TEST_F(Texts, OnAPrinterGoOutAtAPixel) {
  openPrinter();
  drawing.GralWinPrintString(1000, 2000, 0, 90, 12, 0, "a");
  const auto runs = lettersOn(printer);
  ASSERT_EQ(runs.size(), 1U);
  // 12 points at 600 dots are -100 pixels; 2.4 twips a pixel
  EXPECT_EQ(runs[0].size.value(), 12);
  EXPECT_NEAR(std::fmod(runs[0].place.x + 1E-6, 2.4), 0, 1E-4);
  EXPECT_NEAR(runs[0].place.x, 1000 - 0.575 * 12 * 20, 1.2);
  EXPECT_NEAR(runs[0].place.y, 2000, 1.2);
}

TEST_F(Texts, OnAPrinterUnrotatedStandWhereTheyAreCalculated) {
  openPrinter(2);
  drawing.GralWinPrintString(1000, 2000, 0, 0, 10, 0, "a");
  const auto runs = lettersOn(printer);
  EXPECT_EQ(runs[0].size.value(), 20);
  expectAt(runs[0], 1000, 2000 - 230);
}

TEST_F(Texts, DepartureACharacterAbove128HasItsOwnWidth) {
  const auto runs = print(
      "M\xE8"
      "a\xE8"
      "b");
  ASSERT_EQ(runs.size(), 5U);
  const int width = static_cast<int>(form.TextWidth("\xE8"));
  expectAt(runs[1], 1180, 1885);
  expectAt(runs[2], 1180 + width, 1885);
  expectAt(runs[3], 1300 + width, 1885);
  expectAt(runs[4], 1300 + 2 * width, 1885);
}

TEST_F(Texts, CharacterBelow32HasNoWidth) {
  const auto runs = print(
      "a\x05"
      "b");
  ASSERT_EQ(runs.size(), 3U);
  expectAt(runs[1], 1120, 1885);
  expectAt(runs[2], 1120, 1885);
}

TEST_F(Texts, Code128IsStillInTheTable) {
  EXPECT_NO_THROW(drawing.MakLenLett());
  EXPECT_EQ(drawing.LetterWidth(128, 1), form.TextWidth("\x80"));
}

TEST_F(Texts, OfNoCharactersDrawNothing) {
  EXPECT_TRUE(print("").empty());
}

TEST_F(Texts, LetterWidthsAreMeasuredInBothFontsAtTheCurrentSize) {
  form.setFontSize(10);
  drawing.MakLenLett();
  for (const int c : {0, 10, 31}) {
    EXPECT_EQ(drawing.LetterWidth(c, 1), 0);
    EXPECT_EQ(drawing.LetterWidth(c, 2), 0);
  }
  EXPECT_EQ(drawing.LetterWidth('a', 1), 120);
  EXPECT_EQ(drawing.LetterWidth('A', 1), 140);
  EXPECT_EQ(drawing.LetterWidth('i', 1), 60);
  EXPECT_EQ(drawing.LetterWidth('a', 2), 120);
  EXPECT_EQ(drawing.LetterWidth('1', 2), 100);
  EXPECT_EQ(drawing.LetterWidth(32, 1), 60);
  EXPECT_EQ(drawing.LetterWidth(128, 2), 100);
  EXPECT_EQ(drawing.LetterWidth('a', 0), 0);
  EXPECT_THROW(drawing.LetterWidth(129, 1), RuntimeError);
  form.setFontSize(20);
  drawing.MakLenLett();
  EXPECT_EQ(drawing.LetterWidth('a', 1), 240);
  EXPECT_EQ(form.FontName(), "Arial");
}

TEST_F(Texts, SizeIsThatOfThePageTimesTheScale) {
  open(1);
  EXPECT_EQ(print("a")[0].size.value(), 5);
  open(1.5);
  EXPECT_EQ(print("a")[0].size.value(), 7.5);
}

TEST_F(Texts, FontNameIsRestored) {
  print("\\\\{abc}");
  EXPECT_EQ(form.FontName(), "Arial");
  print("\\\\a", 0, 45);
  EXPECT_EQ(form.FontName(), "Arial");
}

TEST_F(Texts, InUsrStandAtTheirPoint) {
  drawing.GralWPrint(8, 4, 0, 0, 10, "a");
  expectAt(letters()[0], 4537.5, 2265 - kHalfTextLine);
}

TEST_F(Texts, OfNegativeSizeAreSwallowed) {
  EXPECT_NO_THROW(drawing.GralWinPrintString(1000, 2000, 0, 0, -10, 0, "abc"));
  EXPECT_NO_THROW(drawing.GralWinPrintString(1000, 2000, 0, 30, 10, 0, "abc"));
}

TEST_F(Texts, FarOutsideSinglePrecisionAreNotSeen) {
  EXPECT_NO_THROW(drawing.GralWinPrintString(1E300, 2000, 0, 0, 10, 0, "abc"));
  EXPECT_NO_THROW(drawing.GralWinPrintString(1000, -1E39, 0, 30, 10, 0, "abc"));
  EXPECT_TRUE(letters().empty());
}

/// A form that counts how often letters are measured on it.
class MeasuredForm : public RecorderDevice {
 public:
  MeasuredForm() : RecorderDevice(FormMetrics{{120, 405}, 1}) {}
  int measured = 0;

 private:
  double advance(bool symbol, unsigned char code) override {
    ++measured;
    return RecorderDevice::advance(symbol, code);
  }
};

TEST_F(Texts, OfAnyLengthAreMeasuredOnce) {
  MeasuredForm measuring;
  drawing.GralGrStr(measuring, "LANDSCAPE", 2);
  std::vector<int> counts;
  for (const int length : {1, 10000}) {
    measuring.forget();
    measuring.measured = 0;
    drawing.GralWPrint(2, 2, 1, 90, 12, std::string(static_cast<std::size_t>(length), 'a'));
    counts.push_back(measuring.measured);
    EXPECT_FALSE(lettersOn(measuring).empty());
  }
  EXPECT_EQ(counts[1], counts[0]);
}

}  // namespace
}  // namespace vk
