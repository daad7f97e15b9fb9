#pragma once

#include <cstdint>
#include <memory>
#include <span>
#include <vector>

#include "expr/CodeReader.h"
#include "expr/PlainOperations.h"
#include "platform/Dialogs.h"
#include "session/Session.h"

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
/// point the run is given up, and the caller goes through the points one by one with `EvaluateCode`, which is
/// the definition of what happens then.
class ColumnMachine {
 public:
  /// The values 1..`varying` of the expression come from columns. The expression must outlive the machine.
  ColumnMachine(const CompiledExpression& compiled, int varying);

  /// False for code that must be run point by point: it reaches for slots, values or arguments that it does
  /// not have, or uses the arguments of an earlier instruction.
  bool usable() const { return usable_; }

  /// Runs at `count` points, at most `kBlockPoints`; false when a statement failed at any of them.
  bool run(Session& session, Dialogs& dialogs, std::span<const double* const> columns, std::size_t count);

  /// The value of the code after a successful run, valid until the next.
  Operand result() const;

 private:
  bool canRun(const Instruction& instruction) const;
  void readCode();
  void loadOperands(std::span<const double* const> columns);
  bool execute(Session& session, Dialogs& dialogs, const Instruction& instruction);
  std::vector<Operand> argumentsOf(const Instruction& instruction) const;
  bool runOperator(const Instruction& instruction);
  bool runElementary(const Instruction& instruction);
  bool runWithArguments(Session& session, Dialogs& dialogs, const Instruction& instruction);
  bool storeForAll(int slot, double value);
  double* columnFor(int slot);

  const CompiledExpression& compiled_;
  int varying_;
  bool usable_ = true;
  std::size_t count_ = 0;
  std::vector<Instruction> program_;
  std::vector<Operand> slots_;
  std::vector<std::size_t> bufferOf_;  ///< for each slot that is written: its place in `buffers_`
  std::unique_ptr<double[]> buffers_;
};

}  // namespace vk
