#pragma once

#include <algorithm>
#include <cmath>
#include <string>
#include <vector>

#include "expr/Compiler.h"
#include "expr/Formula.h"
#include "fuzz/Input.h"

namespace vk {

/// Compiles and runs any text as a definition and throws a `std::logic_error` where a promise is broken: the
/// code stays within its tables, every value is finite, the block form equals single calls. For the fuzzer, for
/// the replay of its corpus, and for random texts.
class DefinitionProbe {
 public:
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

  static void run(const CompiledExpression& compiled) {
    const std::vector<double> points{0, 1, -2.5, 1E200, 0.75};
    const int variables = std::clamp(compiled.Values.upper(), 0, static_cast<int>(compiled.nVar));
    NoListener nobody;
    Formula formula(compiled);
    std::vector<double> single;
    Fault fault = Fault::kNone;
    for (const double x : points) {
      for (int v = 1; v <= variables; ++v) formula.setValue(v, x);
      const Evaluation found = formula.value(nobody);
      single.push_back(found.value);
      fault = found.fault;
      require(std::isfinite(found.value), "a finite value");
    }
    const std::vector<std::span<const double>> columns(static_cast<std::size_t>(variables), points);
    std::vector<double> block(points.size());
    const Fault last = formula.values(columns, block, nobody);
    require(block == single && last == fault, "the block form equals single calls");
  }
};

}  // namespace vk
