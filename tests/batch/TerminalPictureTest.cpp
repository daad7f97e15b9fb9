#include "batch/TerminalPicture.h"

#include <gtest/gtest.h>

#include "batch/TerminalPorts.h"
#include "doubles/ResourceLimit.h"
#include "platform/system/Sixel.h"

namespace vk {
namespace {

constexpr std::uint32_t kRed = 0xFFFF0000, kBlue = 0xFF0000FF, kGrey = 0xFF808080, kNothing = 0;

TEST(TerminalPicture, TwoPixelsAreAHalfBlockInTheirColours) {
  const Picture picture{.width = 2, .height = 2, .pixels = {kRed, kBlue, kGrey, kNothing}};
  EXPECT_EQ(halfBlocks(picture, 2),
            "\x1B[38;2;255;0;0m\x1B[48;2;128;128;128m\u2580"
            "\x1B[38;2;0;0;255m\x1B[48;2;255;255;255m\u2580\x1B[0m\n");
}

TEST(TerminalPicture, ColoursAreToldWhereTheyChange) {
  const Picture picture{.width = 3, .height = 2, .pixels = {kRed, kRed, kRed, kBlue, kBlue, kGrey}};
  EXPECT_EQ(halfBlocks(picture, 3),
            "\x1B[38;2;255;0;0m\x1B[48;2;0;0;255m\u2580\u2580\x1B[48;2;128;128;128m\u2580\x1B[0m\n");
}

TEST(TerminalPicture, IsReducedToTheMeanOfItsPixels) {
  Picture picture{.width = 4, .height = 4, .pixels = {}};
  for (int y = 0; y < 4; ++y) picture.pixels.insert(picture.pixels.end(), {kRed, kBlue, kGrey, kGrey});
  EXPECT_EQ(halfBlocks(picture, 2),
            "\x1B[38;2;128;0;128m\x1B[48;2;128;0;128m\u2580"
            "\x1B[38;2;128;128;128m\x1B[48;2;128;128;128m\u2580\x1B[0m\n");
}

TEST(TerminalPicture, SixelsBeginAndEndAsATerminalExpects) {
  const std::vector<std::uint32_t> pixels(64, kRed);
  const auto text = sixelsOf(pixels, 8, 8);
  ASSERT_TRUE(text);
  EXPECT_TRUE(text->starts_with("\x1BP"));
  EXPECT_TRUE(text->ends_with("\x1B\\"));
  EXPECT_NE(text->find("\"1;1;8;8#"), std::string::npos) << *text;
}

TEST(TerminalPicture, IsShownAsSixelsNoWiderThanTheTerminal) {
  constexpr int kWide = 2000;  // a line of the terminal has 800 pixels
  const Picture picture{.width = kWide, .height = 10, .pixels = std::vector(10 * kWide, kRed)};
  testing::internal::CaptureStdout();
  showPicture(picture, "sixel");
  const std::string text = testing::internal::GetCapturedStdout();
  EXPECT_TRUE(text.starts_with("\x1BP"));
  EXPECT_TRUE(text.ends_with("\x1B\\\n"));
  EXPECT_NE(text.find("\"1;1;800;4#"), std::string::npos) << text.substr(0, 40);
}

TEST(TerminalPicture, IsRefusedWhereNobodyMakesSixels) {
  // The sanitizer opens a file when the library makes an object of a type for the first time.
  EXPECT_THROW(requireShowWord("none"), UsageError);
  const ResourceLimit files(RLIMIT_NOFILE, 0);  // the library of sixels cannot be opened
  EXPECT_THROW(showPicture({.width = 1, .height = 1, .pixels = {kRed}}, "sixel"), UsageError);
}

TEST(TerminalPicture, OnlyTwoWordsAreKnown) {
  EXPECT_NO_THROW(requireShowWord("blocks"));
  EXPECT_NO_THROW(requireShowWord("sixel"));
  EXPECT_THROW(requireShowWord("kitty"), UsageError);
}

}  // namespace
}  // namespace vk
