#include <set>

#include "base/Array.h"
#include "base/CodePage.h"
#include "base/Guard.h"
#include "base/Int16.h"
#include "base/Rounding.h"
#include "base/Text.h"
#include "doubles/ErrorOf.h"

namespace vk {
namespace {

TEST(Int16, RefusesWhatDoesNotFit) {
  Int16 value = 32767;
  EXPECT_EQ(errorOf([&] { value += 1; }), kOverflow);
  EXPECT_EQ(value, 32767);
  value = -32768;
  EXPECT_EQ(errorOf([&] { --value; }), kOverflow);
  EXPECT_EQ(errorOf([&] { value = 40000; }), kOverflow);
}

TEST(Flag, IsMinusOneOrZeroUnderBitwiseOperators) {
  const Flag yes = toFlag(true);
  const Flag no = toFlag(false);
  EXPECT_EQ(yes, -1);
  EXPECT_EQ(no, 0);
  EXPECT_EQ(yes & no, 0);
  EXPECT_EQ(~yes, 0);
  EXPECT_EQ(~no, -1);
}

TEST(Array, ChecksEveryIndex) {
  Array<int> a(3);
  a[3] = 7;
  EXPECT_EQ(a[3], 7);
  EXPECT_EQ(errorOf([&] { a[4] = 1; }), kIndexOutOfRange);
  EXPECT_EQ(errorOf([&] { a[-1] = 1; }), kIndexOutOfRange);
  a.redim(5);
  EXPECT_EQ(a[3], 7);
  a.dim(3);
  EXPECT_EQ(a[3], 0);
  EXPECT_TRUE(a.span(1, 0).empty());
  EXPECT_EQ(a.span(1, 3).size(), 3U);
}

TEST(Guard, DropsTheFailingStatementAndGoesOn) {
  bool failed = false;
  int x = 1;
  guard(failed, [&] { x = Array<int>(2)[5]; });
  EXPECT_EQ(x, 1);
  EXPECT_TRUE(failed);
  guard(failed, [&] { x = 2; });
  EXPECT_EQ(x, 2);
  EXPECT_TRUE(failed);
  EXPECT_TRUE(guard([&] { x = 3; }));
}

TEST(Guard, TakesExhaustedMemoryLikeAnyRunTimeError) {
  EXPECT_FALSE(guard([] { throw std::bad_alloc(); }));
}

TEST(AtEnd, RunsHoweverTheBlockIsLeft) {
  int x = 1;
  guard([&] {
    const AtEnd back([&] { x = 3; });
    x = 2;
    throw RuntimeError(kOverflow);
  });
  EXPECT_EQ(x, 3);
}

TEST(Rounding, GoesToTheEvenNeighbour) {
  EXPECT_EQ(toInt16(2.5), 2);
  EXPECT_EQ(toInt16(3.5), 4);
  EXPECT_EQ(toInt16(-2.5), -2);
  EXPECT_EQ(errorOf([] { toInt16(32767.6); }), kOverflow);
  EXPECT_EQ(errorOf([] { toInt32(std::nan("")); }), kOverflow);
  EXPECT_EQ(Int(-1.5), -2);
}

TEST(RuntimeError, TellsItsNumberAndItalianText) {
  EXPECT_EQ(RuntimeError(kDivisionByZero).message(), "Errore di run-time '11':\n\nDivisione per zero");
  EXPECT_EQ(RuntimeError(kDivisionByZero).reason(), "Divisione per zero");
  EXPECT_EQ(RuntimeError(kDeviceIoError, "Disco pieno").reason(), "Disco pieno");
  EXPECT_EQ(RuntimeError(kDeviceIoError, "Disco pieno").message(),
            "Errore di run-time '57':\n\nErrore di I/O della periferica");
}

template <class Thrown>
RuntimeError presentErrorOf(const Thrown& thrown) {
  try {
    throw thrown;
  } catch (...) {
    return presentRuntimeError();
  }
}

TEST(RuntimeError, EveryExceptionHasANumber) {
  EXPECT_EQ(presentErrorOf(RuntimeError(kOverflow)).number(), 6);
  EXPECT_EQ(presentErrorOf(std::bad_alloc()).message(), "Errore di run-time '7':\n\nMemoria esaurita");
  EXPECT_EQ(presentErrorOf(std::runtime_error("")).number(), 51);
}

TEST(Text, CutsLikeThePositionsSay) {
  EXPECT_EQ(trim("  a b  "), "a b");
  EXPECT_EQ(trim("\ta "), "\ta");
  EXPECT_EQ(left("abc", 2), "ab");
  EXPECT_EQ(right("abc", 2), "bc");
  EXPECT_EQ(right("abc", 5), "abc");
  EXPECT_EQ(right("abc", 0), "");
  EXPECT_EQ(mid("abc", 2), "bc");
  EXPECT_EQ(mid("abc", 4), "");
  EXPECT_EQ(mid("abc", 2, 1), "b");
  EXPECT_EQ(position("banana", "an"), 2);
  EXPECT_EQ(position("banana", "an", 3), 4);
  EXPECT_EQ(position("banana", "x"), 0);
  EXPECT_EQ(upper("a\xE0z"), "A\xE0Z");
  EXPECT_EQ(shortened("0123456789", 10), "0123456789");
  EXPECT_EQ(shortened("0123456789A", 9), "012...89A");
  EXPECT_EQ(shortened("0123456789A", 10), "012...89A");
}

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

TEST(CodePage, GreekLettersThatLookLikeOthersAreThose) {
  EXPECT_EQ(fromUnicode(unifiedForCp437(U'\u03BC'), CodePage::kCp437), '\xE6');
  EXPECT_EQ(fromUnicode(unifiedForCp437(U'\u03B2'), CodePage::kCp437), '\xE1');
  EXPECT_EQ(fromUnicode(unifiedForCp437(U'\u2211'), CodePage::kCp437), '\xE4');
  EXPECT_EQ(unifiedForCp437(U'\u03B1'), U'\u03B1');
}

}  // namespace
}  // namespace vk
