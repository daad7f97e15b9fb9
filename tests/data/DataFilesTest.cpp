#include <gtest/gtest.h>

#include <vector>

#include "data/DataFiles.h"

namespace vk {
namespace {

using Tokens = std::vector<std::string_view>;

constexpr std::size_t kAll = 1000;

Tokens split(std::string_view line, std::size_t most) {
  Tokens place(most);
  const auto tokens = SplitBlanks(line, place);
  return {tokens.begin(), tokens.end()};
}

TEST(SplitBlanks, SeveralBlanksAreOne) {
  EXPECT_EQ(split("  1   2 3  ", kAll), (Tokens{"1", "2", "3"}));
  EXPECT_EQ(split("1", kAll), (Tokens{"1"}));
}

TEST(SplitBlanks, ATabIsABlank) {
  EXPECT_EQ(split("\t1\t 2\t\t3\t", kAll), (Tokens{"1", "2", "3"}));
}

TEST(SplitBlanks, ACommaDoesNotSeparate) {
  EXPECT_EQ(split("1,2 3", kAll), (Tokens{"1,2", "3"}));
}

TEST(SplitBlanks, BlanksAloneHaveNoTokens) {
  EXPECT_TRUE(split("", kAll).empty());
  EXPECT_TRUE(split("    ", kAll).empty());
}

TEST(SplitBlanks, WhatStandsBehindTheLastTokenThatIsAskedForDoesNotMatter) {
  EXPECT_EQ(split("1 2 3", 2), (Tokens{"1", "2"}));
  EXPECT_TRUE(split("1 2 3", 0).empty());
}

}  // namespace
}  // namespace vk
