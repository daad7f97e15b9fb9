#pragma once

#include <span>
#include <vector>

#include "expr/CodeReader.h"
#include "expr/CompiledExpression.h"
#include "numeric/simd/Kernels.h"

namespace vk {

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
  simd::Values result() const { return result_; }

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
  std::size_t points_ = 0;  ///< of the block
  std::size_t count_ = 0;   ///< with those that fill the last register
  std::vector<simd::Values> slots_;
  std::vector<std::size_t> bufferOf_;    ///< for each slot that is written: its place in `buffers_`
  std::size_t written_ = 0;              ///< number of those slots
  std::vector<double> buffers_;          ///< made at the first run; behind them room for the variables
  std::vector<simd::Values> arguments_;  ///< of the instruction at hand
  simd::Values result_;
};

}  // namespace vk
