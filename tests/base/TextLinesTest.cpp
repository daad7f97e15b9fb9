#include "base/TextLines.h"

#include <gmock/gmock.h>

#include <vector>

namespace vk {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

std::vector<std::string> linesOf(const std::string& text) {
  std::vector<std::string> result;
  TextLines lines(text);
  while (const auto line = lines.next()) result.emplace_back(*line);
  return result;
}

TEST(TextLines, EndAtThePairsOfCarriageReturnAndLineFeed) {
  EXPECT_THAT(linesOf("a\r\nb\r\n"), ElementsAre("a", "b"));
  EXPECT_THAT(linesOf("a\r\n\r\n"), ElementsAre("a", ""));
  EXPECT_THAT(linesOf(""), IsEmpty());
  EXPECT_EQ(TextLines("a\r\n").lineEnd(), "\r\n");
}

TEST(TextLines, WhatStandsBehindTheLastLineEndIsALine) {
  EXPECT_THAT(linesOf("a\r\nb"), ElementsAre("a", "b"));
  EXPECT_THAT(linesOf("a\nb"), ElementsAre("a", "b"));
  EXPECT_THAT(linesOf("abc"), ElementsAre("abc"));
}

TEST(TextLines, ALoneCarriageReturnOrLineFeedIsACharacterLikeOthers) {
  EXPECT_THAT(linesOf("a\nb\r\nc\rd\r\n"), ElementsAre("a\nb", "c\rd"));
  EXPECT_THAT(linesOf("a\rb\rc\r"), ElementsAre("a\rb\rc\r"));
  EXPECT_THAT(linesOf("a\r\r\n"), ElementsAre("a\r"));
}

TEST(TextLines, WithLineFeedsOnlyTheyAreTheSameAsTheirTwins) {
  EXPECT_THAT(linesOf("a\nb\n\nc\nd"), ElementsAre("a", "b", "", "c", "d"));
  EXPECT_EQ(TextLines("a").lineEnd(), "\n");
}

TEST(TextLines, KeepEveryByte) {
  const std::string line("\0\x1A\xFF\t ", 5);
  EXPECT_THAT(linesOf(line + "\r\n"), ElementsAre(line));
  const std::string longLine(1 << 20, 'x');
  EXPECT_THAT(linesOf(longLine + "\r\n"), ElementsAre(longLine));
}

TEST(WrappedText, IsDividedAtBlanksAndIndentedBehindItsFirstLine) {
  EXPECT_THAT(wrapped("uno due tre quattro", 9), ElementsAre("uno due", "  tre", "  quattro"));
  EXPECT_THAT(wrapped("precipitevolissimevolmente no", 10),
              ElementsAre("precipitevolissimevolmente", "  no"));
  EXPECT_THAT(wrapped("", 10), ElementsAre(""));
}

TEST(DataLines, AreCleanWithoutTheBlanksAtTheirEndsAndWithTabsAsBlanks) {
  EXPECT_EQ(cleanLine("  a\tb  c \t "), "a b  c  ");
  EXPECT_EQ(cleanLine("   "), "");
  EXPECT_EQ(trimmedLine("  a\tb \t "), "a\tb \t");
}

TEST(DataLines, AreCommentsWhenBlankOrBehindAPercentSign) {
  for (const char* line : {"", "   ", "% a", "   %"}) EXPECT_TRUE(isComment(line)) << line;
  for (const char* line : {"\t", " \t ", "\t%", "a %"}) EXPECT_FALSE(isComment(line)) << line;
}

}  // namespace
}  // namespace vk
