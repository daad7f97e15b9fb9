#include <string_view>

#include "data/DataFiles.h"
#include "data/foreign/ForeignFile.h"
#include "fuzz/Input.h"
#include "fuzz/SameData.h"

namespace vk {
namespace {

/// Any bytes are refused in words, or give a data file that its reader takes and that holds the same points.
void probeReading(std::string_view bytes, const ForeignOptions& options) {
  const ForeignReading reading = readForeign(bytes, options);
  if (!reading.refusal.empty()) return;
  require(!descriptionOf(reading).empty(), "a description of what was taken");
  require(parseLines(dataFileText(reading.data)).errors.empty(), "a data file that can be read");
  const DataReading exact = parseLines(dataFileText(reading.data, kMostDataDigits));
  require(exact.errors.empty() && areEqual(exact.data, reading.data), "all digits bring the points back");
}

}  // namespace

void probe(Input input) {
  const std::string_view bytes = input.rest();
  probeReading(bytes, {});
  ForeignOptions told;
  told.columns = {"1", "2"};
  told.headerLines = 1;
  told.average = 2;
  probeReading(bytes, told);
}

}  // namespace vk
