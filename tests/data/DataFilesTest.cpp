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

}  // namespace
}  // namespace vk
