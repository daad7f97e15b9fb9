#include "batch/TerminalPorts.h"

#include <gtest/gtest.h>

#include <sstream>

namespace vk {
namespace {

TEST(TerminalPorts, ANameIsOneLineWithSignsForControlCharacters) {
  EXPECT_EQ(shownName("a\tb\nc\rd\x1B[2Je"), "a\u25CBb\u25D9c\u266Ad\u2190[2Je");
  EXPECT_EQ(shownName("x\xC2\x9B"
                      "2J\xC3\xA8"),
            "x\uFFFD"
            "2J\u00E8");
  EXPECT_EQ(shownName("x\xE8y\t"), "x\uFFFDy\u25CB");
  EXPECT_EQ(shownName("x\x7Fy\u00A0z\xC2"), "x\u2302y\uFFFD\uFFFDz\uFFFD");
  EXPECT_EQ(shownName("x\u00A0z"), "x\u00A0z");
}

TEST(TerminalPorts, ATextOfAFileKeepsItsTabsAndTheEndOfItsLastLine) {
  EXPECT_EQ(terminalFile("\u00E8\tb\r\nc"), "\u00E8\tb\nc");
  EXPECT_EQ(terminalFile("\u00E8\x1B\r\n"), "\u00E8\u2190\n");
  EXPECT_EQ(terminalText("a\tb\r\nc\x8A\n"), "a\tb\nc\u00E8\u25D9");
}

TEST(TerminalPorts, AWordBecomesTextWithoutLineEnds) {
  EXPECT_EQ(textOfWord("x\u00E8"), "x\x8A");
  EXPECT_EQ(textOfWord("x\xE8"), "x\xE8");
  for (const char* word : {"a\rb", "a\nb", "\u4E16"}) EXPECT_THROW(textOfWord(word), UsageError) << word;
}

TEST(TerminalPorts, AMessageIsOneLineBehindItsSubject) {
  std::ostringstream told;
  TerminalDialogs dialogs("fit", told);
  dialogs.plainBox("", WindowText("Uno!\r\n\r\n  due\n\ntre  quattro"));
  EXPECT_EQ(told.str(), "fit: Uno! due; tre quattro\n");
}

TEST(TerminalPorts, NobodyChoosesAFile) {
  EXPECT_EQ(TerminalDialogs("fit").fileDialog({}), std::nullopt);
}

}  // namespace
}  // namespace vk
