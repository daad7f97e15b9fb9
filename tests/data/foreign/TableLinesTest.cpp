#include "data/foreign/TableLines.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace vk {
namespace {

using ::testing::ElementsAre;

/// Of each line its number, the letter of its kind, and its cells with "|" between: "3P:1|2".
std::vector<std::string> shownLines(const std::string& text, std::size_t most = 10) {
  std::vector<std::string> shown;
  for (const TableLine& line : tableLines(text, readForeign(text), most)) {
    std::string cells;
    for (const std::string& cell : line.cells) cells += (cells.empty() ? "" : "|") + cell;
    shown.push_back(std::to_string(line.number) + std::string("APL")[static_cast<std::size_t>(line.kind)] +
                    ":" + cells);
  }
  return shown;
}

TEST(TableLines, KeepWordsTogetherWhereBlanksSeparateAndCommentsWhole) {
  EXPECT_THAT(shownLines("Corrente nel filo\n1 2.5 0.1\n# a b 3\n2 3.5 0.1\n"),
              ElementsAre("1A:Corrente nel filo", "2P:1|2.5|0.1", "3A:# a b 3", "4P:2|3.5|0.1"));
  EXPECT_THAT(shownLines("t;V\n1;2.5\n2;3.5\n"), ElementsAre("1A:t|V", "2P:1|2.5", "3P:2|3.5"));
}

TEST(TableLines, AreWholeWhereNoTableIsMadeOut) {
  EXPECT_THAT(shownLines("una lettera\ndi parole; e basta\n"),
              ElementsAre("1A:una lettera", "2A:di parole; e basta"));
}

TEST(TableLines, AreTheFirstAndAsManyOfThoseLeftOut) {
  const std::string text = "1;2.5\n2;3.5\nx;3\ny;4\nz;5\n";
  EXPECT_THAT(shownLines(text + text, 2), ElementsAre("1P:1|2.5", "2P:2|3.5", "3L:x|3", "4L:y|4"));
}

TEST(TableLines, AreNoneOfAFileThatIsNoText) {
  EXPECT_THAT(shownLines("%PDF-1.4\n1 2\n"), ElementsAre());
}

}  // namespace
}  // namespace vk
