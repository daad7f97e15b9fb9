#pragma once

#include <optional>
#include <span>

#include "base/Array.h"
#include "expr/Formula.h"
#include "numeric/Fault.h"

namespace vk {

struct BlockStorage;

/// The model function f[g(x)], ready to be run again and again: a pair of the catalogue by plain arithmetic, or a
/// loaded inner function by its code, which is read once.
///
/// `parameters` are 0..K, element 0 unused: those of g, then those of f. Each of g and f is one statement, or more
/// where g is loaded: what fails stores nothing, which leaves 0, and the next one runs. Values are finite.
class Model {
 public:
  /// Zero everywhere.
  Model() = default;
  /// Inner function `inner` and outer function `outer` of the catalogue, from 1. An inner one that is not built in
  /// needs its compiled formula in x; an outer one that there is not leaves the inner value.
  Model(int inner, int outer, CompiledExpression loaded = {});

  int outer() const { return outer_; }
  /// The formula of a loaded inner function.
  const CompiledExpression& loaded() const { return loaded_.compiled(); }

  /// The value at a point; the fault is that of the last statement that failed.
  Evaluation at(double x, const Array<double>& parameters, EvaluationListener& listener);

  /// The values at n points: results and faults are bit for bit those of n single calls, and the listener hears the
  /// same. Gives the fault of the last point; `faults`, when not empty, gets the fault of each. The spans have one
  /// length; `result` may be `x` itself.
  Fault at(std::span<const double> x, const Array<double>& parameters, std::span<double> result,
           EvaluationListener& listener, std::span<Fault> faults = {});

  /// The values at n points, at most `kBlockPoints`, that have parameters of their own: `columns[0]` holds their x,
  /// `columns[k]` their parameter k. They have the bits of those of n single calls. False where a point has a
  /// fault; then nothing is stored, and nobody has heard of it.
  bool together(std::span<const double* const> columns, std::span<double> result);

 private:
  Evaluation pointAt(double x, const Array<double>& parameters, EvaluationListener& listener);
  template <class Parameters>
  bool together(BlockStorage& room, std::span<const double* const> columns, const Parameters& parameters,
                std::span<double> result);
  void setParameters(const Array<double>& parameters);

  int inner_ = 0;
  int outer_ = 0;
  Formula loaded_;
};

}  // namespace vk
