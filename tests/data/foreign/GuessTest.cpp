#include "data/foreign/Guess.h"

#include <gtest/gtest.h>

#include "data/foreign/Lines.h"
#include "data/foreign/Refusal.h"

namespace vk {
namespace {

/// The separator and the decimal sign of a text, "p" behind them for pairs; or why there are none.
std::string dialectOf(const std::string& text, const KnownDialect& known = {}) {
  try {
    const Dialect dialect = guessDialect(splitLines(text), known);
    return std::string{dialect.separator, dialect.decimal} + (dialect.paired ? "p" : "");
  } catch (const Refusal& refusal) {
    return refusal.what();
  }
}

/// A long table of whole numbers, with one cell far down that is something else.
std::string longTable(const std::string& cell) {
  std::string text;
  for (int row = 0; row < 900; ++row) text += row == 501 ? "7;" + cell + "\n" : "1;2\n";
  return text;
}

TEST(GuessedDialect, LooksAtAllLinesWhereTheFirstFitBothDecimalSigns) {
  EXPECT_EQ(dialectOf(longTable("5")), ";,");
  EXPECT_EQ(dialectOf(longTable("1,5")), ";,");
  EXPECT_EQ(dialectOf(longTable("1.5")), ";.");
  EXPECT_EQ(dialectOf("# 1.5\n" + longTable("5")), ";,");
}

TEST(GuessedDialect, OfCellsThatAreTwoNumbersIsTheCustomaryOneOrNone) {
  EXPECT_EQ(dialectOf("1.234;2\n1.235;3\n"),
            "\"1.234\" puo` valere 1234 (--decimal ,) o 1.234 (--decimal .): indicare il segno decimale");
  EXPECT_EQ(dialectOf("1,234;2\n1,235;3\n"),
            "\"1,234\" puo` valere 1.234 (--decimal ,) o 1234 (--decimal .): indicare il segno decimale");
  EXPECT_EQ(dialectOf("1.234\t2\n1.235\t3\n"), "\t.");
  EXPECT_EQ(dialectOf("1,234\t2\n1,235\t3\n"),
            "\"1,234\" puo` valere 1.234 (--decimal ,) o 1234 (--decimal .): indicare il segno decimale");
  EXPECT_EQ(dialectOf("1.234;2\n", {{}, '.'}), ";.");
}

TEST(GuessedDialect, OfCommasBetweenOrWithinNumbersIsToldByZerosOrNames) {
  EXPECT_EQ(dialectOf("# 0,1\n,,,\n1,05,2,5\n"), ",,p");
  EXPECT_EQ(dialectOf("t,V\n1,5,2,5\n"), ",,p");
  EXPECT_EQ(dialectOf("t,dt,V,dV\n1,5,2,5\n"), ",.");
  EXPECT_EQ(dialectOf("t,V,I\n1,0,2,5\n"),
            "le virgole possono separare 4 colonne (--decimal .) o essere anche segno decimale di 2 colonne "
            "(--decimal ,): indicare il segno decimale");
}

}  // namespace
}  // namespace vk
