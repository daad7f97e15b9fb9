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

std::string repeated(const std::string& text) {
  std::string result;
  while (result.size() < kMuch) result += text;
  return result;
}

/// Right files in which almost everything is the same.
class ReadingMemory : public testing::TestWithParam<std::string> {
 protected:
  ReadingMemory() { files.content["X.DAT"] = GetParam(); }
  std::size_t limit() const { return kBytesAByte * GetParam().size() + kPoints; }

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
                         testing::Values("x\ny\n2\n1 2 .1\n2 4 .1\n" + repeated("\n"),
                                         "x\r\ny\r\n" + kPointLines + repeated("\r\n"),
                                         repeated("%\r\n") + "x\r\ny\r\n" + kPointLines,
                                         "%" + repeated(" ") + "\r\nx\r\ny\r\n" + kPointLines,
                                         repeated("titolo ") + "\r\ny\r\n" + kPointLines,
                                         "x\r\ny\r\n2\r\n1 2 " + repeated(" ") + ".1\r\n2 4 .1\r\n",
                                         "% x\r\nx\r\n" + repeated("titolo ") + "\r\n" + kPointLines));

}  // namespace
}  // namespace vk
