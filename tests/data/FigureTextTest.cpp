#include "data/FigureText.h"

#include <gtest/gtest.h>

#include <vector>

#include "base/CodePage.h"
#include "data/DataFiles.h"

namespace vk {
namespace {

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

TEST(FigureText, OfUtf8HasMarkupOrTheCodeOfWindows1252) {
  EXPECT_EQ(figureTextOfUtf8("Velocità (m/s) ±5 µm ° ç ñ ö è é ì ò ù"),
            "Velocit\xE0 (m/s) \xB1"
            "5 \\\\mm ^o \xE7 \xF1 \xF6 \xE8 \xE9 \xEC \xF2 \xF9");
  EXPECT_EQ(figureTextOfUtf8("m² cm³ ½ ¼ xⁿ ß ƒ € s⁻¹"), "m^2 cm\xB3 1/2 1/4 x^n \xDF \x83 \x80 s^-\xB9");
  EXPECT_EQ(figureTextOfUtf8(R"(\\a^{2}_x\)"), R"(\\a^{2}_x\)");
}

TEST(FigureText, OfUtf8HasGreekLettersAsTheyAre) {
  EXPECT_EQ(figureTextOfUtf8("αβΓπΣσμδΩ"), R"(\\a\\b\\G\\p\\S\\s\\m\\d\\W)");
  EXPECT_EQ(figureTextOfUtf8("τΦΘφθγλΔε"), R"(\\t\\F\\Q\\f\\q\\g\\l\\D\\e)");
  EXPECT_EQ(figureTextOfUtf8("Ω ∑"), R"(\\W \\S)") << "the unit of resistance, and the sign of a sum";
}

TEST(FigureText, OfUtf8HasQuestionMarksForWhatCannotBeDrawn) {
  EXPECT_EQ(figureTextOfUtf8("\u4E16 \U0001F600 \u0436 \uFFFD \u22A5 \u0080 \u009F \uFEFF"),
            "? ? ? ? ? ? ? ?");
  EXPECT_EQ(figureTextOfUtf8("1 − 2 ≤ 3"), "1 - 2 <= 3");
}

TEST(FigureText, OfAFileGoesByItsSigns) {
  const FileText utf8("à"), old("\xE0");
  EXPECT_EQ(figureText(utf8, "à"), "\xE0");
  EXPECT_EQ(figureText(old, "\xE0"), R"(\\a)");
}

/// A data file of this title.
std::string fileOf(const std::string& title) {
  return title + "\r\ny\r\n 2\r\n1 2 3\r\n4 5 6\r\n";
}

TEST(FigureText, EveryLetterOfATitleComesBackFromTheFileSaved) {
  for (int i = 0x21; i < 0x100; ++i) {
    if (i == '%') continue;  // begins a comment
    std::string letter;
    appendUtf8(letter, toUnicode(static_cast<char>(i), CodePage::kWindows1252));
    for (const std::string& title : {letter, "x" + letter, letter + "x " + letter}) {
      const DataSet data = parseLines(fileOf(title)).data;
      const DataReading back = parseLines(dataFileText(data));
      EXPECT_EQ(back.errors, "");
      EXPECT_EQ(back.data.TitleX, data.TitleX) << title;
      EXPECT_EQ(parseFreeFields(dataFileText(data)).data.TitleX, data.TitleX) << title;
      const bool stays = i >= 0xA0 && data.TitleX.find_first_of("^/\\") == std::string::npos;
      EXPECT_TRUE(!stays || dataFileText(data).starts_with(title + "\r\n")) << title;
    }
  }
}

TEST(FigureText, OneByteThatIsNoUtf8MakesAllTitlesThoseOfAnOldFile) {
  EXPECT_EQ(parseLines("Velocità\r\n" + fileOf("y\xE0")).data.TitleX, "Velocit????");
  EXPECT_EQ(parseLines("Velocità\r\n2\r\n1 2 3\r\n4 5 6\r\n% \xE0").data.TitleX, "Velocit????");
  EXPECT_EQ(parseLines(fileOf("Velocit\xC3")).data.TitleX, "Velocit??");
}

TEST(FigureText, AByteOrderMarkIsSkippedInUtf8Only) {
  const std::string mark = "\xEF\xBB\xBF";
  EXPECT_EQ(parseLines(mark + fileOf("t (s)")).data.TitleX, "t (s)");
  EXPECT_EQ(parseFreeFields(mark + fileOf("t (s)")).data.TitleX, "t (s)");
  EXPECT_EQ(parseLines(mark + "% comment\r\n" + fileOf("t")).data.TitleX, "t");
  EXPECT_EQ(parseLines(mark + fileOf("\xE0")).data.TitleX, R"(??????\\a)");
  EXPECT_EQ(parseLines(mark).errors, parseLines("").errors);
}

TEST(FigureText, ErrorsQuoteALineAsCharacterGridsShowIt) {
  EXPECT_EQ(parseLines("x\r\ny\r\n 2\r\n1 2 3\r\nperché È?\r\n4 5 6\r\n").errors,
            "***ERR. Linea 5: perch\x82 E`?\r\n   le linee Dati DEVONO contenere  3 dati.\r\n");
  EXPECT_EQ(parseLines("x\r\ny\r\n 2\r\n1 2 3\r\nperch\x82\r\n4 5 6\r\n").errors,
            "***ERR. Linea 5: perch\x82\r\n   le linee Dati DEVONO contenere  3 dati.\r\n");
}

}  // namespace
}  // namespace vk
