#pragma once

#include <optional>
#include <span>
#include <vector>

#include "expr/ColumnMachine.h"
#include "expr/CompiledExpression.h"
#include "numeric/Fault.h"

namespace vk {

/// A compiled expression ready to be run again and again: its code is read once, and it has its own work space.
class Formula {
 public:
  Formula() = default;
  explicit Formula(CompiledExpression compiled);

  const CompiledExpression& compiled() const { return compiled_; }

  /// Puts a value in the place of variable or parameter `index`, counted from 1 over both; a place that the
  /// expression has not is left out.
  void setValue(int index, double value) {
    if (index >= 1 && index <= compiled_.Values.upper()) compiled_.Values[index] = value;
  }
  /// The same for the places from `first` on.
  void setValues(int first, std::span<const double> values);

  /// The value of the expression. A failing statement stores nothing and the next one runs; the fault is that of
  /// the last one that failed. From finite values comes a finite value, whatever bytes the code is made of.
  Evaluation value(EvaluationListener& listener);

  /// The values at n points: `columns[v]` holds those of variable v + 1, all as long as `result`, which may be one
  /// of them. Results and faults are bit for bit those of n single calls, and the listener hears the same. Gives
  /// the fault of the last point; `faults`, when not empty, gets the fault of each. What stands in the variables'
  /// places afterwards is undefined.
  Fault values(std::span<const std::span<const double>> columns, std::span<double> result,
               EvaluationListener& listener, std::span<Fault> faults = {});

  /// The values at these places of the first variable; not a number where the expression has none.
  std::vector<double> valuesAt(std::span<const double> x, EvaluationListener& listener);

  /// The values at `count` points, at most `kBlockPoints`, together; nothing when one of them has a fault. Valid
  /// until the next run.
  std::optional<simd::Values> block(std::span<const double* const> columns, std::size_t count);

 private:
  CompiledExpression compiled_;
  std::vector<Instruction> program_;
  ColumnMachine columns_;
};

/// Puts not-a-number in the place of each value that has a fault.
void dropFaulty(std::span<double> values, std::span<const Fault> faults);

/// Runs a code over loaded slots, where it is run only once.
Evaluation evaluate(const std::string& code, std::span<double> slots, EvaluationListener& listener);

/// Loads the slots of a compiled expression from its values by the operand map.
void loadSlots(CompiledExpression& compiled);

}  // namespace vk
