#include <gtest/gtest.h>

#include "data/DataFiles.h"
#include "data/PeakMemory.h"
#include "doubles/MemoryFiles.h"

namespace vk {
namespace {

constexpr std::size_t kBytesAByte = 4;
constexpr std::size_t kPoints = 100000;  // what a data set of a few points takes
constexpr std::size_t kMuch = 2000000;

const std::string kPointLines = "2\r\n1 2 .1\r\n2 4 .1\r\n";

/// A right file in which almost everything is the same.
struct LongFile {
  std::string start, repeated, end;

  std::string text() const {
    std::string result = start;
    while (result.size() < kMuch) result += repeated;
    return result + end;
  }
};

class ReadingMemory : public testing::TestWithParam<LongFile> {
 protected:
  ReadingMemory() { files.content["X.DAT"] = GetParam().text(); }
  std::size_t limit() const { return kBytesAByte * files.content.at("X.DAT").size() + kPoints; }

  MemoryFiles files;
};

TEST_P(ReadingMemory, OfTheParserOfLinesIsInProportionToTheFile) {
  const PeakMemory peak;
  const DataReading reading = readData(files, "X.DAT");
  EXPECT_LE(peak.bytes(), limit());
  EXPECT_EQ(reading.errors, "");
}

TEST_P(ReadingMemory, OfTheParserOfFreeFieldsIsInProportionToTheFile) {
  const PeakMemory peak;
  const FreeFieldReading reading = parseFreeFields(files.readAll("X.DAT"));
  EXPECT_LE(peak.bytes(), limit());
  EXPECT_TRUE(reading.complete);
}

INSTANTIATE_TEST_SUITE_P(Files, ReadingMemory,
                         testing::Values(LongFile{"x\ny\n2\n1 2 .1\n2 4 .1\n", "\n", ""},
                                         LongFile{"x\r\ny\r\n" + kPointLines, "\r\n", ""},
                                         LongFile{"", "%\r\n", "x\r\ny\r\n" + kPointLines},
                                         LongFile{"%", " ", "\r\nx\r\ny\r\n" + kPointLines},
                                         LongFile{"", "titolo ", "\r\ny\r\n" + kPointLines},
                                         LongFile{"x\r\ny\r\n2\r\n1 2 ", " ", ".1\r\n2 4 .1\r\n"},
                                         LongFile{"% x\r\nx\r\n", "titolo ", "\r\n" + kPointLines}));

}  // namespace
}  // namespace vk
