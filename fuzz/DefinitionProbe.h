#pragma once

#include <algorithm>
#include <bit>
#include <cmath>
#include <cstdint>
#include <span>
#include <string>
#include <utility>
#include <vector>

#include "expr/Compiler.h"
#include "expr/Formula.h"
#include "fuzz/Input.h"

namespace vk {

/// The same bits, or neither a number.
inline bool isSame(double one, double other) {
  return std::bit_cast<std::uint64_t>(one) == std::bit_cast<std::uint64_t>(other) ||
         (std::isnan(one) && std::isnan(other));
}

/// Compiles and runs any text as a definition and throws a `std::logic_error` where a promise is broken: the
/// code stays within its tables, finite points give finite values, the block form equals single calls bit for
/// bit. For the fuzzer, for the replay of its corpus, and for random texts.
class DefinitionProbe {
 public:
  /// Each variable takes the points from another one on, and round to those before it; each parameter takes one.
  explicit DefinitionProbe(std::vector<double> points = {0, 1, -2.5, 1E200, 0.75})
      : points_(std::move(points)) {}

  /// True when the text compiled.
  bool probe(const std::string& definition) {
    const Compilation result = compile(definition);
    const CompiledExpression& compiled = result.code;
    require(result.ok != compiled.Code.empty(), "code exactly where the compilation is well");
    require(result.ok == result.faults.empty(), "a fault for each failure");
    for (const CompileFault& fault : result.faults) {
      require(fault.first >= 0 && fault.length >= 0 &&
                  fault.first + fault.length <= static_cast<int>(definition.size()),
              "faults within the definition");
    }
    if (result.ok) checkTables(compiled);
    listCode(compiled);
    run(compiled);
    return result.ok;
  }

 private:
  static void checkTables(const CompiledExpression& compiled) {
    require(compiled.LastSlot <= 99, "at most a hundred operands");
    require(compiled.Slots.upper() == compiled.LastSlot, "a slot for each operand");
    require(static_cast<int>(compiled.OperandMap.size()) == compiled.LastSlot + 1,
            "a map byte for each operand");
    for (const char byte : compiled.OperandMap) {
      const int index = static_cast<unsigned char>(byte);
      require(index >= 1 && index <= compiled.Values.upper(), "map bytes within the values");
    }
    for (int i = 0; i <= compiled.Values.upper(); ++i) {
      require(std::isfinite(compiled.Values[i]), "finite constants");
    }
  }

  void run(const CompiledExpression& compiled) const {
    const int variables = std::clamp(compiled.Values.upper(), 0, static_cast<int>(compiled.nVar));
    const bool finite = std::ranges::all_of(points_, [](double x) { return std::isfinite(x); });
    const std::size_t count = points_.size();
    std::vector<std::vector<double>> columns(static_cast<std::size_t>(variables), points_);
    for (std::size_t v = 0; v < columns.size(); ++v)
      std::rotate(columns[v].begin(), columns[v].begin() + static_cast<std::ptrdiff_t>(v % count),
                  columns[v].end());
    NoListener nobody;
    Formula formula(compiled);
    for (int p = 1; p <= compiled.nPar; ++p)
      formula.setValue(variables + p, points_[static_cast<std::size_t>(p) % count]);
    std::vector<Evaluation> single;
    for (std::size_t i = 0; i < count; ++i) {
      for (std::size_t v = 0; v < columns.size(); ++v)
        formula.setValue(static_cast<int>(v) + 1, columns[v][i]);
      single.push_back(formula.value(nobody));
      require(!finite || std::isfinite(single.back().value), "a finite value");
    }
    std::vector<double> block(count);
    std::vector<Fault> faults(count);
    formula.values(std::vector<std::span<const double>>(columns.begin(), columns.end()), block, nobody,
                   faults);
    for (std::size_t i = 0; i < count; ++i) {
      require(isSame(block[i], single[i].value) && faults[i] == single[i].fault,
              "the block form equals single calls");
    }
  }

  std::vector<double> points_;
};

}  // namespace vk
