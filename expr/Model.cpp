#include "expr/Model.h"

#include <algorithm>

#include "expr/Blocks.h"
#include "expr/CompositeFunction.h"

namespace vk {

Model::Model(int inner, int outer, CompiledExpression loaded)
    : inner_(inner), outer_(outer), loaded_(std::move(loaded)) {}

void Model::setParameters(const Array<double>& parameters) {
  const int count = std::min(static_cast<int>(loaded_.compiled().nPar), parameters.upper());
  loaded_.setValues(2, parameters.span(1, count));
}

Evaluation Model::pointAt(double x, const Array<double>& parameters, EvaluationListener& listener) {
  Fault fault = Fault::kNone;
  // A failed statement stores nothing, which leaves the empty variable's 0.
  const auto stored = [&fault](double value) {
    if (isFinite(value)) return value;
    fault = Fault::kDomain;
    return 0.0;
  };
  double u = 0;
  if (isPlainInner(inner_)) {
    u = stored(innerValue(inner_, parameters, x));
  } else {
    loaded_.setValue(1, x);
    const Evaluation inner = loaded_.value(listener);
    u = inner.value;
    fault = inner.fault;
  }
  const double y = stored(outerValue(outer_, parameters, x, u));
  return {y, fault};
}

Evaluation Model::at(double x, const Array<double>& parameters, EvaluationListener& listener) {
  if (!isPlainInner(inner_)) setParameters(parameters);
  return pointAt(x, parameters, listener);
}

/// `columns` are those of a loaded inner function: x, and parameters that are not the same at all points.
template <class Parameters>
bool Model::together(BlockStorage& room, std::span<const double* const> columns, const Parameters& parameters,
                     std::span<double> result) {
  const BlockNumber x(room, {filledUp(columns[0], result.size(), room.column())});
  std::optional<simd::Values> u;
  if (isPlainInner(inner_)) {
    u = innerValue(inner_, parameters, x).values();
  } else {
    u = loaded_.block(columns, result.size());
  }
  if (!u || !(u->column || isFinite(u->value))) return false;
  const BlockNumber y = outerValue(outer_, parameters, x, BlockNumber(room, *u));
  // The result may lie where x lies, so it is stored when nothing needs x any more.
  if (room.finite) spread(y.values(), result.data(), result.size());
  return room.finite;
}

bool Model::together(std::span<const double* const> columns, std::span<double> result) {
  BlockStorage room(result.size());
  const auto known = static_cast<std::size_t>(1 + std::max<int>(0, loaded_.compiled().nPar));
  return together(room, columns.first(std::min(columns.size(), known)),
                  ParameterColumns{room, columns, result.size()}, result);
}

Fault Model::at(std::span<const double> x, const Array<double>& parameters, std::span<double> result,
                EvaluationListener& listener, std::span<Fault> faults) {
  requirePoints(x.size(), result.size());
  setParameters(parameters);
  return inBlocks(
      result, faults,
      [&](std::size_t begin, std::size_t count) {
        BlockStorage room(count);
        const double* const column = &x[begin];
        return together(room, {&column, 1}, parameters, result.subspan(begin, count));
      },
      [&](std::size_t i) { return pointAt(x[i], parameters, listener); });
}

}  // namespace vk
