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

std::optional<simd::Values> Model::innerTogether(BlockStorage& room, const double* x,
                                                 const Array<double>& parameters) {
  if (!isPlainInner(inner_)) return loaded_.block({&x, 1}, room.count);
  const simd::Values u = innerValue(inner_, parameters, BlockNumber(room, {x})).values();
  return u.column || isFinite(u.value) ? std::optional(u) : std::nullopt;
}

bool Model::together(std::span<const double> x, const Array<double>& parameters, double* result) {
  BlockStorage room(x.size());
  const double* const points = filledUp(x.data(), x.size(), room.column());
  const std::optional<simd::Values> u = innerTogether(room, points, parameters);
  if (!u) return false;
  const BlockNumber y = outerValue(outer_, parameters, BlockNumber(room, {points}), BlockNumber(room, *u));
  // The result may lie where x lies, so it is stored when nothing needs x any more.
  if (room.finite) spread(y.values(), result, x.size());
  return room.finite;
}

Fault Model::at(std::span<const double> x, const Array<double>& parameters, std::span<double> result,
                EvaluationListener& listener, std::span<Fault> faults) {
  requirePoints(x.size(), result.size());
  setParameters(parameters);
  return inBlocks(
      result, faults,
      [&](std::size_t begin, std::size_t count) {
        return together(x.subspan(begin, count), parameters, &result[begin]);
      },
      [&](std::size_t i) { return pointAt(x[i], parameters, listener); });
}

}  // namespace vk
