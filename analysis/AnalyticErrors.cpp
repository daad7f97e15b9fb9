#include "analysis/AnalyticErrors.h"

#include <cmath>

#include "base/CheckedMath.h"
#include "base/Guard.h"
#include "expr/CmpMod.h"

namespace vk {
namespace {

constexpr double kStepsOfValue = 1000;
constexpr double kDerivativeStepOfZero = 0.001;
// A maximum error is taken as so many standard deviations.
constexpr double kMaximumInSigmas = 3;
// The variance of a uniform distribution of half-width a is a*a over this.
constexpr double kUniformDivisor = 3;

double value(Session& session, Dialogs& dialogs) {
  return EvaluateFunction(session, dialogs, session.analysis.par.ParValues[0]);
}

double valueAt(Session& session, Dialogs& dialogs, int variable, double shifted) {
  guard(session.ErrFlag, [&] { session.analysis.par.ParValues[variable] = checked::finite(shifted); });
  return value(session, dialogs);
}

double derivative(Session& session, Dialogs& dialogs, int variable) {
  const double p = session.analysis.par.ParValues[variable];
  double h = p / kStepsOfValue;
  if (h == 0) h = kDerivativeStepOfZero;
  const double f1 = valueAt(session, dialogs, variable, p + h);
  const double f2 = valueAt(session, dialogs, variable, p - h);
  double result = 0;
  guard(session.ErrFlag, [&] { result = checked::divide(checked::finite(f1 - f2), h) / 2; });
  session.analysis.par.ParValues[variable] = p;
  return result;
}

void addContribution(Session& session, double error, double derivative, double& maximum, double& variance) {
  guard(session.ErrFlag, [&] {
    const double t = std::abs(checked::finite(error * derivative));
    const double t2 = checked::finite(t * t);
    maximum = checked::finite(maximum + (error > 0 ? kMaximumInSigmas * t : t));
    variance = checked::finite(variance + (error > 0 ? t2 : t2 / kUniformDivisor));
  });
}

}  // namespace

// QUIRK: each evaluation clears the flag, so that the failure of any but the last one is not noticed.
AnalyticErrors analyticErrors(Session& session, Dialogs& dialogs) {
  const ParameterSet& par = session.analysis.par;
  AnalyticErrors result;
  result.F0 = value(session, dialogs);
  result.Derivatives.dim(par.ParCount);
  for (int i = 0; i <= par.ParCount; ++i) result.Derivatives[i] = derivative(session, dialogs, i);
  double variance = 0;
  for (int i = 0; i <= par.ParCount; ++i) {
    addContribution(session, par.ParDeltas[i], result.Derivatives[i], result.ErrorMax, variance);
  }
  result.ErrorSigma = std::sqrt(variance);
  return result;
}

}  // namespace vk
