#include "grafile/FunctionLines.h"

#include <algorithm>
#include <cmath>
#include <vector>

#include "base/NumberMasks.h"
#include "base/NumberText.h"
#include "base/Text.h"
#include "grafile/FunctionValues.h"
#include "grafile/NamedParameters.h"

namespace vk {
namespace {

constexpr const char* kParameterMask = "#.#######^^^^";
/// The part of the height of a figure that nobody sees.
constexpr double kUnseen = 1E-3;

std::string definition(const ParameterSet& par, int i) {
  return par.name(i) + " = " + FormatMask(par.ParValues[i], kParameterMask);
}

/// The values that the definitions leave in a graphic file, which are singles; false when one leaves none.
bool readBack(const ParameterSet& par, Array<double>& values) {
  for (int i = 1; i <= par.ParCount; ++i) {
    const std::string text = trim(FormatMask(par.ParValues[i], kParameterMask));
    const float single = static_cast<float>(scanNumber(text));
    if (!isNumeric(text) || !std::isfinite(single)) return false;
    values[i] = scanNumber(generalText(single));
  }
  return true;
}

/// True when the function, with these parameters, looks like the curve of the figure.
bool looksLikeTheCurve(Model& model, const Array<double>& parameters, const FigureValues& values,
                       EvaluationListener& listener) {
  constexpr int kEnoughPoints = 200;
  const SampledCurve& curve = values.curve;
  const int stride = std::max(1, curve.segments / kEnoughPoints);
  std::vector<double> x, y;
  for (int i = 0; i <= curve.segments; i += stride) {
    if (curve.failed[i] != kFalse) continue;
    x.push_back(curve.x[i]);
    y.push_back(curve.y[i]);
  }
  const double unseen = kUnseen * (values.Yf - values.Yi);
  return eachValue(model, parameters, x, listener, [&](std::size_t i, const Evaluation& seen) {
    return seen.fault == Fault::kNone && std::abs(seen.value - y[i]) <= unseen;
  });
}

bool sevenDigitsDo(const FigureSource& source, const FigureValues& values, EvaluationListener& listener) {
  Array<double> parameters = source.parameters.ParValues;
  return readBack(source.parameters, parameters) &&
         looksLikeTheCurve(source.model, parameters, values, listener);
}

std::string withAllDigits(const ParameterSet& par, std::string expression) {
  NamedParameters parameters;
  for (int i = 1; i <= par.ParCount; ++i) {
    DefineParameter(parameters, par.name(i) + "=0");
    parameters.ParamDoubles[parameters.ParamCount] = par.ParValues[i];
  }
  Int16 unknown;
  SubstituteExpression(parameters, expression, unknown, Precision::kDouble);
  return expression;
}

}  // namespace

FunctionLines functionLines(const FigureSource& source, const FigureValues& values,
                            EvaluationListener& listener) {
  const ParameterSet& par = source.parameters;
  FunctionLines result;
  for (int i = 1; i <= par.ParCount; ++i) result.parameters += (i == 1 ? "" : ", ") + definition(par, i);
  result.expression =
      sevenDigitsDo(source, values, listener) ? source.expression : withAllDigits(par, source.expression);
  return result;
}

}  // namespace vk
