#pragma once

#include <cstdint>
#include <span>
#include <vector>

#include "expr/CodeReader.h"
#include "expr/CompiledExpression.h"
#include "expr/PlainOperations.h"

namespace vk {

/// Points that are computed together; few enough for their columns to stay in the nearest cache.
inline constexpr std::size_t kBlockPoints = 256;

// Each point is computed from values at the same place, so a result may replace its operand.
#if defined(__GNUC__) && !defined(__clang__)
#define VK_INDEPENDENT_POINTS _Pragma("GCC ivdep")
#else
#define VK_INDEPENDENT_POINTS
#endif

/// out[i] = f(i) for `count` points; false when any of the values is not finite. `f` has no side effects.
template <class Function>
bool fillColumn(double* out, std::size_t count, Function f) {
  std::int64_t failed = 0;  // as wide as the values, so that the loop becomes one of vectors
  VK_INDEPENDENT_POINTS
  for (std::size_t i = 0; i < count; ++i) {
    const double value = f(i);
    out[i] = value;
    failed |= isFinite(value) ? 0 : 1;
  }
  return failed == 0;
}

/// One value for each point, or one for all.
struct Operand {
  const double* column = nullptr;
  double value = 0;

  double at(std::size_t i) const { return column ? column[i] : value; }
};

/// Runs a code over a block of points, one instruction after the other, as long as nothing fails.
///
/// Operations on parameters and constants alone are done once for all points. Where a statement fails at any
/// point the run is given up, and the caller goes through the points one by one, which is the definition of what
/// happens then; so nobody is told here of a kernel that is exhausted. The expression and its instructions stand
/// with the caller, the same ones each time.
class ColumnMachine {
 public:
  ColumnMachine() = default;
  ColumnMachine(const CompiledExpression& compiled, std::span<const Instruction> program);

  /// Runs at `count` points, at most `kBlockPoints`; the values 1..columns.size() of the expression come from
  /// columns. False when a statement failed at any point, and for code that must be run point by point: it reaches
  /// for slots, values or arguments that it does not have, or uses the arguments of an earlier instruction.
  bool run(const CompiledExpression& compiled, std::span<const Instruction> program,
           std::span<const double* const> columns, std::size_t count);

  /// The value of the code after a successful run, valid until the next.
  Operand result() const { return result_; }

 private:
  void placeBuffers(std::span<const Instruction> program);
  void loadOperands(const CompiledExpression& compiled, std::span<const double* const> columns);
  bool execute(std::string_view code, const Instruction& instruction);
  bool runOperator(const Instruction& instruction);
  bool runElementary(const Instruction& instruction);
  bool runWithArguments(std::string_view code, const Instruction& instruction);
  bool storeForAll(int slot, double value);
  double* columnFor(int slot);

  bool usable_ = false;
  std::size_t count_ = 0;
  std::vector<Operand> slots_;
  std::vector<std::size_t> bufferOf_;  ///< for each slot that is written: its place in `buffers_`
  std::size_t written_ = 0;            ///< number of those slots
  std::vector<double> buffers_;        ///< made at the first run
  std::vector<Operand> arguments_;     ///< of the instruction at hand
  Operand result_;
};

}  // namespace vk
