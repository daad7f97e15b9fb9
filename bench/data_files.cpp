// Data files as text: reading with and without checks, and writing.
#include <benchmark/benchmark.h>

#include <cmath>

#include "data/DataFiles.h"

namespace vk {
namespace {

DataSet measurement(int points) {
  DataSet data;
  data.TitleX = "x";
  data.TitleY = "y";
  data.allocate(points, kFalse);
  for (int i = 1; i <= points; ++i) {
    data.Xpnt[i] = 10.0 * i / points;
    data.Ypnt[i] = 5 * std::sin(3.7 * i);
    data.ErrYpnt[i] = 0.1;
  }
  return data;
}

void checkAgainstPoints(benchmark::State& state) {
  const std::string text = dataFileText(measurement(static_cast<int>(state.range(0))));
  for (auto _ : state) {
    const DataReading reading = parseLines(text);
    if (!reading.errors.empty()) return state.SkipWithError("the file has errors");
  }
  state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(text.size()));
}

void readAgainstPoints(benchmark::State& state) {
  const std::string text = dataFileText(measurement(static_cast<int>(state.range(0))));
  for (auto _ : state) {
    if (!parseFreeFields(text).complete) return state.SkipWithError("the file was not read");
  }
  state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(text.size()));
}

void writeAgainstPoints(benchmark::State& state) {
  const DataSet data = measurement(static_cast<int>(state.range(0)));
  std::string text;
  for (auto _ : state) text = dataFileText(data);
  state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(text.size()));
}

#define AGAINST_POINTS(work) \
  BENCHMARK(work)->RangeMultiplier(4)->Range(128, 32767)->Unit(benchmark::kMillisecond)

AGAINST_POINTS(checkAgainstPoints);
AGAINST_POINTS(readAgainstPoints);
AGAINST_POINTS(writeAgainstPoints);

}  // namespace
}  // namespace vk
