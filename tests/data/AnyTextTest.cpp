#include <gtest/gtest.h>

#include <cmath>
#include <random>

#include "data/DataFiles.h"

namespace vk {
namespace {

/// Lines of numbers, junk and separators, as a careless or hostile file may hold them.
std::string randomFile(std::mt19937& chance) {
  const std::vector<std::string> pieces{"1", "2.5", "-3E2", "1D400", " ",  "  ",   "\t",
                                        "%", "x",   ",",    "\r",    "\n", "\xE6", std::string(1, '\0')};
  std::string text = chance() % 2 == 0 ? "x\r\ny\r\n" : "";
  const auto lineEnd = chance() % 4 == 0 ? "\n" : "\r\n";
  for (unsigned line = chance() % 8; line > 0; --line) {
    if (chance() % 4 != 0) {
      text += text.size() < 8 ? "4" : "1 2.5 -3E2";
    } else {
      for (unsigned piece = chance() % 8; piece > 0; --piece) text += pieces[chance() % pieces.size()];
    }
    if (chance() % 8 != 0) text += lineEnd;
  }
  return text;
}

TEST(DataFiles, AnyTextIsLoadedWholeOrRefused) {
  std::mt19937 chance(2);
  int loaded = 0;
  for (int run = 0; run < 30000; ++run) {
    const std::string text = randomFile(chance);
    const DataReading reading = parseLines(text);
    const std::string& errors = reading.errors;
    ASSERT_TRUE(errors.empty() || errors.ends_with("\r\n"));
    if (errors.empty()) {
      ASSERT_GE(reading.data.NumPnt, 2);
      ++loaded;
    }
    const FreeFieldReading free = parseFreeFields(text);
    ASSERT_TRUE(free.count > 0 || !free.complete);
    ASSERT_TRUE(free.count == 0 || free.data.NumPnt == free.count);
    ASSERT_EQ(free.data.Xpnt.upper(), free.data.NumPnt);
    for (int i = 1; i <= free.data.NumPnt; ++i) ASSERT_TRUE(std::isfinite(free.data.Ypnt[i]));
  }
  EXPECT_GT(loaded, 1000);
}

}  // namespace
}  // namespace vk
