#include "data/foreign/Encoding.h"

#include <gtest/gtest.h>

#include "data/foreign/Refusal.h"

namespace vk {
namespace {

using namespace std::string_literals;

/// The text ten times.
std::string tenTimes(const std::string& text) {
  std::string times;
  for (int i = 0; i < 10; ++i) times += text;
  return times;
}

/// What a file is taken for: the name of its encoding, or nothing for no text.
std::string guessed(const std::string& bytes) {
  try {
    return std::string(encodingName(guessEncoding(bytes)));
  } catch (const Refusal& refusal) {
    EXPECT_EQ(refusal.what(), "non e` un file di testo: contiene byte che non sono caratteri"s);
    return {};
  }
}

TEST(ForeignEncoding, OfSixteenBitsHasZerosInEverySecondPlaceAlone) {
  EXPECT_EQ(guessed(tenTimes("1\0;\0"s)), "UTF-16 LE");
  EXPECT_EQ(guessed(tenTimes("\0001\0;"s)), "UTF-16 BE");
  EXPECT_EQ(guessed(tenTimes("1\0\0\0;\0;\0"s)), "");
  EXPECT_EQ(guessed(tenTimes("\0001\0\0\0;\0;"s)), "");
  EXPECT_EQ(guessed("1;2\n3\0;4"s), "");
}

TEST(ForeignEncoding, OfATextHasFewControlCharacters) {
  const std::string line = "12345;67890\t\r\n";
  EXPECT_EQ(guessed(tenTimes(line) + "\x01"), "ASCII");
  EXPECT_EQ(guessed(tenTimes(line) + "\x01\x1B\x1A"), "ASCII");
  EXPECT_EQ(guessed(tenTimes(line) + "\x01\x02"), "");
}

TEST(ForeignEncoding, OfSixteenBitsGivesCharactersOfOnePlace) {
  EXPECT_EQ(decodeText("\xFF\xFE\x61\0\xE0\0\x01\xFB"s, Encoding::kUtf16Le), "a\u00E0\uFB01");
  EXPECT_EQ(decodeText("\xFE\xFF\xD8\x3D\xDE\x00\0b"s, Encoding::kUtf16Be), "\uFFFD\uFFFDb");
  EXPECT_EQ(decodeText("\xD7\xFF\xD8\0\xDF\xFF\xE0\0"s, Encoding::kUtf16Be), "\uD7FF\uFFFD\uFFFD\uE000");
}

}  // namespace
}  // namespace vk
