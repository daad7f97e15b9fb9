#include "base/CodePage.h"

#include <gmock/gmock.h>

#include <set>

namespace vk {
namespace {

TEST(CodePage, EveryByteComesBack) {
  for (const CodePage page : {CodePage::kCp437, CodePage::kWindows1252}) {
    std::set<char32_t> seen;
    for (int i = 0; i < 256; ++i) {
      const char c = static_cast<char>(i);
      EXPECT_EQ(fromUnicode(toUnicode(c, page), page), c) << i;
      seen.insert(toUnicode(c, page));
    }
    EXPECT_EQ(seen.size(), 256U);
  }
}

TEST(CodePage, ShowsTheSignsOfTheProgram) {
  EXPECT_EQ(toUtf8("X\xFD/\xE6 \xFBu \xE5 \xEB \xB3\xBA", CodePage::kCp437), "X²/µ √u σ δ │║");
  EXPECT_EQ(toUtf8("abq", CodePage::kSymbol), "αβθ");
  EXPECT_EQ(toUtf8("\x80\xE0", CodePage::kWindows1252), "€à");
}

TEST(CodePage, EveryByteComesBackFromUtf8) {
  std::string all;
  for (int i = 0; i < 256; ++i) all += static_cast<char>(i);
  for (const CodePage page : {CodePage::kCp437, CodePage::kWindows1252}) {
    EXPECT_EQ(decodeUtf8(toUtf8(all, page)), toUnicode(all, page));
  }
}

TEST(CodePage, ReadsUtf8OfAnyLength) {
  EXPECT_EQ(decodeUtf8(""), U"");
  EXPECT_EQ(decodeUtf8("a\x7F\xC2\x80\xDF\xBF\xE0\xA0\x80\xEF\xBF\xBF\xF0\x90\x80\x80\xF4\x8F\xBF\xBF"),
            U"a\u007F\u0080\u07FF\u0800\uFFFF\U00010000\U0010FFFF");
}

TEST(CodePage, WhatIsNoUtf8IsNotRead) {
  for (const char* bytes : {"\x80", "a\xE6", "\xC3", "\xC3(", "\xE2\x82", "\xE2\x82z", "\xC0\x80", "\xC1\xBF",
                            "\xE0\x9F\xBF", "\xF0\x8F\xBF\xBF", "\xED\xA0\x80", "\xED\xBF\xBF",
                            "\xF4\x90\x80\x80", "\xF8\x88\x80\x80\x80", "\xFF"}) {
    EXPECT_EQ(decodeUtf8(bytes), std::nullopt) << testing::PrintToString(std::string(bytes));
  }
}

TEST(CodePage, CaseIsIgnoredInLatinAndGreekLetters) {
  for (const auto& [a, b] :
       {std::pair{"ETÀ", "età"}, {"ΔΣΩ µ", "δςω μ"}, {"\u2126", "ω"}, {"ŸŠŽŒÞ z", "ÿšžœþ Z"}}) {
    EXPECT_TRUE(equalIgnoringLetterCase(a, b)) << a;
    EXPECT_TRUE(equalIgnoringLetterCase(b, a)) << a;
  }
  for (const auto& [a, b] : {std::pair{"à", "a"}, {"×", "÷"}, {"@[", "`{"}, {"t", "tt"}, {"ß", "ÿ"}}) {
    EXPECT_FALSE(equalIgnoringLetterCase(a, b)) << a;
  }
  EXPECT_TRUE(equalIgnoringLetterCase("\x85", "\x85"));
  EXPECT_FALSE(equalIgnoringLetterCase("\x85", "\x84"));
  for (const char* text : {"", "a", "ab"}) {
    EXPECT_FALSE(equalIgnoringLetterCase(text, "\x84")) << text;
    EXPECT_FALSE(equalIgnoringLetterCase("\x84", text)) << text;
  }
}

TEST(CodePage, GreekLettersThatLookLikeOthersAreThose) {
  EXPECT_EQ(fromUnicode(unifiedForCp437(U'\u03BC'), CodePage::kCp437), '\xE6');
  EXPECT_EQ(fromUnicode(unifiedForCp437(U'\u03B2'), CodePage::kCp437), '\xE1');
  EXPECT_EQ(fromUnicode(unifiedForCp437(U'\u2211'), CodePage::kCp437), '\xE4');
  EXPECT_EQ(fromUnicode(unifiedForCp437(U'\u2126'), CodePage::kCp437), '\xEA');
  EXPECT_EQ(unifiedForCp437(U'\u03B1'), U'\u03B1');
}

}  // namespace
}  // namespace vk
