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
    u = stored(withInner(inner_, parameters, [x](auto g) { return g(x); }));
  } else {
    loaded_.setValue(1, x);
    const Evaluation inner = loaded_.value(listener);
    u = inner.value;
    fault = inner.fault;
  }
  const double y = stored(withOuter(outer_, parameters, [x, u](auto f) { return f(x, u); }));
  return {y, fault};
}

Evaluation Model::at(double x, const Array<double>& parameters, EvaluationListener& listener) {
  if (!isPlainInner(inner_)) setParameters(parameters);
  return pointAt(x, parameters, listener);
}

std::optional<Operand> Model::innerTogether(std::span<const double> x, const Array<double>& parameters) {
  if (!isPlainInner(inner_)) {
    const double* const points = x.data();
    return loaded_.block({&points, 1}, x.size());
  }
  const bool good = withInner(inner_, parameters, [&](auto g) {
    return fillColumn(block_.data(), x.size(),
                      [points = x.data(), g](std::size_t i) { return g(points[i]); });
  });
  return good ? std::optional(Operand{block_.data(), 0}) : std::nullopt;
}

bool Model::together(std::span<const double> x, const Array<double>& parameters, double* result) {
  const std::optional<Operand> u = innerTogether(x, parameters);
  if (!u) return false;
  std::array<double, kBlockPoints> values;
  const bool good = withOuter(outer_, parameters, [&, points = x.data()](auto f) {
    if (!u->column) {
      return fillColumn(values.data(), x.size(),
                        [points, f, y = u->value](std::size_t i) { return f(points[i], y); });
    }
    return fillColumn(values.data(), x.size(),
                      [points, f, y = u->column](std::size_t i) { return f(points[i], y[i]); });
  });
  // The result may lie where x lies, so it is stored when nothing needs x any more.
  if (good) std::copy_n(values.data(), x.size(), result);
  return good;
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
