#include <cstdint>
#include <stdexcept>
#include <string_view>

#include "data/DataFiles.h"
#include "data/foreign/ForeignFile.h"

namespace vk {
namespace {

void require(bool condition, const char* promise) {
  if (!condition) throw std::logic_error(promise);
}

bool areEqual(const DataSet& one, const DataSet& other) {
  if (one.NumPnt != other.NumPnt) return false;
  for (int i = 1; i <= one.NumPnt; ++i) {
    if (one.Xpnt[i] != other.Xpnt[i] || one.Ypnt[i] != other.Ypnt[i] || one.ErrXpnt[i] != other.ErrXpnt[i] ||
        one.ErrYpnt[i] != other.ErrYpnt[i])
      return false;
  }
  return one.TitleX == other.TitleX && one.TitleY == other.TitleY;
}

/// Any bytes are refused in words, or give a data file that its reader takes and that holds the same points.
void probe(std::string_view bytes, const ForeignOptions& options) {
  const ForeignReading reading = readForeign(bytes, options);
  if (!reading.refusal.empty()) return;
  require(!descriptionOf(reading).empty(), "a description of what was taken");
  require(parseLines(dataFileText(reading.data)).errors.empty(), "a data file that can be read");
  const DataReading exact = parseLines(dataFileText(reading.data, kMostDataDigits));
  require(exact.errors.empty() && areEqual(exact.data, reading.data), "all digits bring the points back");
}

}  // namespace
}  // namespace vk

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string_view bytes(reinterpret_cast<const char*>(data), size);
  vk::probe(bytes, {});
  vk::ForeignOptions told;
  told.columns = {"1", "2"};
  told.headerLines = 1;
  told.average = 2;
  vk::probe(bytes, told);
  return 0;
}
