#include "data/foreign/Lines.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <utility>

namespace vk {
namespace {

using ::testing::ElementsAre;
using ::testing::Pair;

std::vector<std::pair<int, std::string_view>> linesOf(std::string_view text) {
  std::vector<std::pair<int, std::string_view>> lines;
  for (const ForeignLine& line : splitLines(text)) lines.emplace_back(line.number, line.text);
  return lines;
}

TEST(ForeignLines, HaveNoBlanksAtTheirEndsButTabsWhichMayBeEmptyCells) {
  EXPECT_THAT(linesOf("  a b    \n\tc\t \n"), ElementsAre(Pair(1, "a b"), Pair(2, "\tc\t")));
}

TEST(ForeignLines, AreThoseThatAreNotBlankWithTheirNumbersInTheFile) {
  EXPECT_THAT(linesOf("\n \t \na\r\n\rb"), ElementsAre(Pair(3, "a"), Pair(5, "b")));
}

TEST(ForeignLines, GoOnWhereAQuoteIsOpen) {
  EXPECT_THAT(linesOf("1;\"two\nlines\";3\n4"), ElementsAre(Pair(1, "1;\"two\nlines\";3"), Pair(3, "4")));
}

TEST(ForeignLines, TakeAQuoteThatIsOpenForTooLongAsAStraySign) {
  const std::string near = "\"" + std::string(8, '\n') + "\"";
  EXPECT_THAT(linesOf(near), ElementsAre(Pair(1, near)));
  EXPECT_THAT(linesOf("\"" + std::string(9, '\n') + "\""), ElementsAre(Pair(1, "\""), Pair(10, "\"")));
}

}  // namespace
}  // namespace vk
