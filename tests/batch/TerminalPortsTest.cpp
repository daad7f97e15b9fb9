#include "batch/TerminalPorts.h"

#include <gtest/gtest.h>

namespace vk {
namespace {

TEST(TerminalPorts, ANameIsOneLineWithSignsForControlCharacters) {
  EXPECT_EQ(shownName("a\tb\nc\rd\x1B[2Je"), "a\u25CBb\u25D9c\u266Ad\u2190[2Je");
  EXPECT_EQ(shownName("x\xC2\x9B"
                      "2J\xC3\xA8"),
            "x\uFFFD"
            "2J\u00E8");
  EXPECT_EQ(shownName("x\xE8y\t"), "x\uFFFDy\u25CB");
}

TEST(TerminalPorts, NobodyChoosesAFile) {
  EXPECT_EQ(TerminalDialogs("fit").fileDialog({}), std::nullopt);
}

}  // namespace
}  // namespace vk
