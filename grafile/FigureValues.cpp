#include <algorithm>
#include <cmath>

#include "base/CheckedMath.h"
#include "base/Guard.h"
#include "grafile/FunctionValues.h"
#include "grafile/NiceLimits.h"
#include "grafile/StandardFigure.h"

namespace vk {
namespace {

using PointFailed = std::function<void()>;

constexpr int kMostFailedPoints = 5;
constexpr int kLeastCurveSegments = 50;
constexpr int kBandSegments = 200;  // about a millimetre each on a page of A4

void findXLimits(const DataSet& data, FigureValues& values) {
  guard(values.failed, [&] { RangeOf(values.Xi, values.Xf, data.Xpnt, data.NumPnt); });
  openRange(values.Xi, values.Xf);
  guard(values.failed, [&] { NiceLimits(values.Xi, values.Xf, values.nDivX); });
}

/// The curve of the function over the range of x, which the range of y takes in.
bool sampleFunction(const FigureSource& source, FigureValues& values, EvaluationListener& listener,
                    const PointFailed& pointFailed) {
  SampledCurve& curve = values.curve;
  curve.segments = std::max(2 * source.data.NumPnt, kLeastCurveSegments);
  for (Array<double>* column : {&curve.x, &curve.y}) column->dim(curve.segments);
  curve.failed.dim(curve.segments);
  double distance = 0;
  guard(values.failed, [&] { distance = checked::finite((values.Xf - values.Xi) / curve.segments); });
  for (int i = 0; i <= curve.segments; ++i) curve.x[i] = values.Xi + i * distance;
  int failed = 0;
  const auto take = [&](std::size_t i, const Evaluation& y) {
    const int point = static_cast<int>(i);
    if (y.fault != Fault::kNone) {
      curve.failed[point] = kTrue;
      pointFailed();
      return ++failed <= kMostFailedPoints;
    }
    curve.y[point] = y.value;
    values.Yi = std::min(values.Yi, y.value);
    values.Yf = std::max(values.Yf, y.value);
    return true;
  };
  return eachValue(source.model, source.parameters.ParValues, curve.x.span(0, curve.segments), listener,
                   take);
}

void findBand(const FigureSource& source, FigureValues& values) {
  for (int i = 0; i <= kBandSegments; ++i)
    values.bandX.push_back(values.Xi + i * ((values.Xf - values.Xi) / kBandSegments));
  ExhaustionWatch watch;
  const FitProblem problem{source.data, source.model, watch};
  auto widths = bandWidths(problem, source.parameters, *source.band, values.bandX);
  values.failed = values.failed || !widths;
  if (widths) values.band = std::move(*widths);
}

/// The differences of data and function; the range of y becomes that of their error bars.
bool computeDifferences(const FigureSource& source, FigureValues& values, EvaluationListener& listener,
                        const PointFailed& pointFailed) {
  const DataSet& data = source.data;
  values.differences.dim(data.NumPnt);
  const auto take = [&](std::size_t index, const Evaluation& y) {
    if (y.fault != Fault::kNone) {
      pointFailed();
      return false;
    }
    const int i = static_cast<int>(index) + 1;
    const double e = data.ErrYpnt[i];
    double& d = values.differences[i];
    guard(values.failed, [&] { d = checked::finite(data.Ypnt[i] - y.value); });
    values.Yi = i == 1 ? d - e : std::min(values.Yi, d - e);
    values.Yf = i == 1 ? d + e : std::max(values.Yf, d + e);
    return true;
  };
  return eachValue(source.model, source.parameters.ParValues, data.Xpnt.span(1, data.NumPnt), listener, take);
}

bool findYLimits(const FigureSource& source, FigureValues& values, EvaluationListener& listener,
                 const PointFailed& pointFailed) {
  guard(values.failed, [&] { RangeOf(values.Yi, values.Yf, source.data.Ypnt, source.data.NumPnt); });
  if (source.kind == kFunctionFigure && !sampleFunction(source, values, listener, pointFailed)) return false;
  if (source.kind == kDifferencesFigure && !computeDifferences(source, values, listener, pointFailed))
    return false;
  openRange(values.Yi, values.Yf);
  guard(values.failed, [&] { NiceLimits(values.Yi, values.Yf, values.nDivY); });
  return true;
}

}  // namespace

std::optional<FigureValues> computeFigure(const FigureSource& source, EvaluationListener& listener,
                                          const PointFailed& pointFailed) {
  FigureValues values;
  findXLimits(source.data, values);
  if (!findYLimits(source, values, listener, pointFailed)) return std::nullopt;
  if (source.kind == kFunctionFigure && source.band != nullptr) findBand(source, values);
  return values;
}

}  // namespace vk
