#include "expr/Formula.h"

#include <algorithm>
#include <array>
#include <limits>

#include "expr/Blocks.h"
#include "expr/SingleMachine.h"

namespace vk {

Formula::Formula(CompiledExpression compiled)
    : compiled_(std::move(compiled)),
      program_(readInstructions(compiled_.Code)),
      columns_(compiled_, program_) {}

void Formula::setValues(int first, std::span<const double> values) {
  const int places = std::max(0, compiled_.Values.upper() - first + 1);
  const auto count = std::min(values.size(), static_cast<std::size_t>(places));
  std::copy_n(values.begin(), count, compiled_.Values.span(first, compiled_.Values.upper()).begin());
}

Evaluation Formula::value(EvaluationListener& listener) {
  loadSlots(compiled_);
  return runInstructions(compiled_.Code, program_, compiled_.Slots.span(0, compiled_.Slots.upper()),
                         listener);
}

std::optional<simd::Values> Formula::block(std::span<const double* const> columns, std::size_t count) {
  if (!columns_.run(compiled_, program_, columns, count)) return std::nullopt;
  return columns_.result();
}

Fault Formula::values(std::span<const std::span<const double>> columns, std::span<double> result,
                      EvaluationListener& listener, std::span<Fault> faults) {
  for (const std::span<const double> column : columns) requirePoints(column.size(), result.size());
  const auto variables =
      std::min(columns.size(), static_cast<std::size_t>(std::max(0, compiled_.Values.upper())));
  std::vector<const double*> places(variables);
  const auto together = [&](std::size_t begin, std::size_t count) {
    for (std::size_t v = 0; v < variables; ++v) places[v] = columns[v].data() + begin;
    const std::optional<simd::Values> found = block(places, count);
    if (found) spread(*found, &result[begin], count);
    return found.has_value();
  };
  const auto single = [&](std::size_t i) {
    for (std::size_t v = 0; v < variables; ++v) setValue(static_cast<int>(v) + 1, columns[v][i]);
    return value(listener);
  };
  return inBlocks(result, faults, together, single);
}

std::vector<double> Formula::valuesAt(std::span<const double> x, EvaluationListener& listener) {
  std::vector<double> found(x.size());
  std::vector<Fault> faults(x.size());
  values(std::array{x}, found, listener, faults);
  dropFaulty(found, faults);
  return found;
}

void dropFaulty(std::span<double> values, std::span<const Fault> faults) {
  for (std::size_t i = 0; i < values.size(); ++i) {
    if (faults[i] != Fault::kNone) values[i] = std::numeric_limits<double>::quiet_NaN();
  }
}

Evaluation evaluate(const std::string& code, std::span<double> slots, EvaluationListener& listener) {
  return runInstructions(code, readInstructions(code), slots, listener);
}

void loadSlots(CompiledExpression& compiled) {
  const std::span<double> slots = compiled.Slots.span(0, compiled.Slots.upper());
  const std::span<const double> values = compiled.Values.span(0, compiled.Values.upper());
  const std::string& map = compiled.OperandMap;
  const auto count = std::min({slots.size(), map.size(), static_cast<std::size_t>(compiled.LastSlot + 1)});
  for (std::size_t i = 0; i < count; ++i) {
    const auto index = static_cast<unsigned char>(map[i]);
    if (index < values.size()) slots[i] = values[index];
  }
}

}  // namespace vk
