#include "data/foreign/Cells.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace vk {
namespace {

using ::testing::ElementsAre;

std::vector<std::string_view> cellsOf(std::string_view line, const Dialect& dialect) {
  std::vector<std::string_view> cells;
  splitCells(line, dialect, cells);
  return cells;
}

TEST(Cells, StandBetweenSeparators) {
  EXPECT_THAT(cellsOf("1; 2 ;;4;;", {';', ','}), ElementsAre("1", "2", "", "4"));
  EXPECT_THAT(cellsOf("  1 \t 2  ", {' ', '.'}), ElementsAre("1", "2"));
  EXPECT_THAT(cellsOf("\t1\t\t2", {'\t', '.'}), ElementsAre("", "1", "", "2"));
  EXPECT_THAT(cellsOf(";;;", {';', '.'}), ElementsAre());
}

TEST(Cells, QuotesHideSeparators) {
  EXPECT_THAT(cellsOf(R"("a;b" ; " 2 ";"say ""x""")", {';', ','}), ElementsAre("a;b", "2", R"(say ""x"")"));
  EXPECT_THAT(cellsOf(R"("two words" 1)", {' ', '.'}), ElementsAre("two words", "1"));
  // A quote that is not closed is a sign like others.
  EXPECT_THAT(cellsOf(R"("a;5" tube;3)", {';', ','}), ElementsAre(R"("a)", R"(5" tube)", "3"));
  EXPECT_EQ(cellText(R"(say ""x"")"), R"(say "x")");
  EXPECT_EQ(cellText("two\r\nlines"), "two  lines");
}

TEST(Cells, PairsAreOneNumberEach) {
  EXPECT_THAT(cellsOf("1,5,-2,25", {',', ',', true}), ElementsAre("1,5", "-2,25"));
  EXPECT_THAT(cellsOf("1,5,2", {',', ',', true}), ElementsAre());
}

TEST(Cells, NumbersHaveTheDecimalSignOfTheDialect) {
  const Dialect comma{';', ','}, point{';', '.'};
  EXPECT_EQ(cellNumber("-1,5", comma), -1.5);
  EXPECT_EQ(cellNumber(",5E2", comma), 50);
  EXPECT_EQ(cellNumber("1.5", comma), std::nullopt);
  EXPECT_EQ(cellNumber("1,5", point), std::nullopt);
  EXPECT_EQ(cellNumber("+1.5D-1", point), 0.15);
  for (const char* none :
       {"", "-", ",", "1,", "nan", "inf", "1,5,5", "0x1", "1 2", "1,5 V", "12,5%", "1e", "--1"}) {
    EXPECT_EQ(cellNumber(none, comma), std::nullopt) << none;
  }
}

TEST(Cells, GroupsOfThreeDigitsMayBeSetApart) {
  EXPECT_EQ(cellNumber("1.234.567,5", {';', ','}), 1234567.5);
  EXPECT_EQ(cellNumber("-1,234.5", {';', '.'}), -1234.5);
  EXPECT_EQ(cellNumber("12'345", {';', '.'}), 12345);
  EXPECT_EQ(cellNumber("12 345,5", {';', ','}), 12345.5);
  for (const char* none :
       {"1.23,5", "1234.567,5", "0.123,5", "1.234E2", "1.234,5.6", "1..234", "1.2345", ".123,4"}) {
    EXPECT_EQ(cellNumber(none, {';', ','}), std::nullopt) << none;
  }
  EXPECT_EQ(cellNumber("12 345", {',', '.'}), std::nullopt);
}

}  // namespace
}  // namespace vk
