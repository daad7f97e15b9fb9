#pragma once

#include <algorithm>
#include <cmath>
#include <stdexcept>
#include <string>
#include <vector>

#include "expr/CmpMod.h"
#include "tests/doubles/CountingDialogs.h"

namespace vk {

/// Compiles and runs any text as a definition and throws a `std::logic_error` where a promise is broken: the
/// code stays within its tables, every value is finite, the block form equals single calls. For the fuzzer, for
/// the replay of its corpus, and for random texts.
class DefinitionProbe {
 public:
  /// True when the text compiled.
  bool probe(const std::string& definition) {
    session_.TraceText.clear();
    session_.TraceEnabled = kTrue;
    CompiledExpression compiled;
    Int16 flag = kTrue;
    CompileExpression(session_, definition, compiled, flag);
    const bool good = flag == kFalse;
    require(good != compiled.Code.empty(), "code exactly where the flag is clear");
    if (good) checkTables(compiled);
    listCode(compiled);
    run(compiled);
    return good;
  }

 private:
  static void require(bool condition, const char* promise) {
    if (!condition) throw std::logic_error(promise);
  }

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

  void run(CompiledExpression& compiled) {
    const std::vector<double> points{0, 1, -2.5, 1E200, 0.75};
    const int variables = std::clamp(compiled.Values.upper(), 0, static_cast<int>(compiled.nVar));
    std::vector<double> single;
    for (const double x : points) {
      for (int v = 1; v <= variables; ++v) compiled.Values[v] = x;
      loadSlots(compiled);
      single.push_back(EvaluateCode(session_, dialogs_, compiled.Code, compiled.Slots));
      require(std::isfinite(single.back()), "a finite value");
    }
    const Int16 flag = session_.ErrFlag;
    const std::vector<std::span<const double>> columns(static_cast<std::size_t>(variables), points);
    std::vector<double> block(points.size());
    evaluateCodeAt(session_, dialogs_, compiled, columns, block);
    require(block == single && session_.ErrFlag == flag, "the block form equals single calls");
  }

  Session session_;
  CountingDialogs dialogs_;
};

}  // namespace vk
