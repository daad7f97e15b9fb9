#include "grafile/FunctionLines.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "base/NumberMasks.h"
#include "base/NumberText.h"
#include "base/Text.h"
#include "expr/CmpMod.h"
#include "expr/FunMod.h"
#include "grafile/GralPlt.h"

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
    const double told = scanNumber(text);
    const float single = static_cast<float>(told);
    if (!isNumeric(text) || !std::isfinite(single)) return false;
    values[i] = scanNumber(generalText(single));
  }
  return true;
}

/// True when the curve of the session, with the parameters it has now, looks like the one that it keeps.
bool looksLikeTheCurve(Session& session, Dialogs& dialogs, double height) {
  constexpr int kEnoughPoints = 200;
  const DataSet& data = session.loaded.data;
  const int stride = std::max(1, data.NumFunPnt / kEnoughPoints);
  for (int i = 0; i <= data.NumFunPnt; i += stride) {
    if (data.FunFailed[i] != kFalse) continue;
    const double y = EvaluateFunction(session, dialogs, data.FunX[i]);
    if (session.ErrFlag != 0 || !(std::abs(y - data.FunY[i]) <= kUnseen * height)) return false;
  }
  return true;
}

/// Gives the parameters and the error register their values back at the end of the scope.
class ParametersComeBack {
 public:
  explicit ParametersComeBack(Session& session)
      : session_(session), values_(session.analysis.par.ParValues), flag_(session.ErrFlag) {}
  ~ParametersComeBack() {
    std::swap(session_.analysis.par.ParValues, values_);
    session_.ErrFlag = flag_;
  }
  ParametersComeBack(const ParametersComeBack&) = delete;
  ParametersComeBack& operator=(const ParametersComeBack&) = delete;

 private:
  Session& session_;
  Array<double> values_;
  Int16 flag_;
};

bool sevenDigitsDo(Session& session, Dialogs& dialogs, double height) {
  const ParametersComeBack afterwards(session);
  return readBack(session.analysis.par, session.analysis.par.ParValues) &&
         looksLikeTheCurve(session, dialogs, height);
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

FunctionLines functionLines(Session& session, Dialogs& dialogs, double height) {
  const ParameterSet& par = session.analysis.par;
  FunctionLines result;
  for (int i = 1; i <= par.ParCount; ++i) result.parameters += (i == 1 ? "" : ", ") + definition(par, i);
  result.expression = ComposeFunctionText(session);
  if (!sevenDigitsDo(session, dialogs, height)) result.expression = withAllDigits(par, result.expression);
  return result;
}

}  // namespace vk
