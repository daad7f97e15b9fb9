#include <algorithm>

#include "expr/CmpMod.h"
#include "expr/CompositeFunction.h"

namespace vk {
namespace {

/// The value of a statement; a failed one stores nothing, which leaves the empty variable's 0.
double stored(Session& session, double value) {
  if (isFinite(value)) return value;
  session.ErrFlag = kTrue;
  return 0;
}

double innerValue(Session& session, Dialogs& dialogs, double x) {
  if (isPlainInner(session.analysis.fun.InnerIndex)) {
    return stored(session, withInner(session, [x](auto g) { return g(x); }));
  }
  setModelValues(session, x);
  loadSlots(session.analysis.model);
  return EvaluateCode(session, dialogs, session.analysis.model.Code, session.analysis.model.Slots);
}

}  // namespace

void setModelValues(Session& session, double x) {
  CompiledExpression& model = session.analysis.model;
  const Array<double>& parameters = session.analysis.par.ParValues;
  if (model.Values.upper() >= 1) model.Values[1] = x;
  const int count = std::min({static_cast<int>(model.nPar), parameters.upper(), model.Values.upper() - 1});
  for (int i = 1; i <= count; ++i) model.Values[i + 1] = parameters[i];
}

double EvaluateFunction(Session& session, Dialogs& dialogs, double x) {
  session.ErrFlag = kFalse;
  const double u = innerValue(session, dialogs, x);
  return stored(session, withOuter(session, [x, u](auto f) { return f(x, u); }));
}

}  // namespace vk
