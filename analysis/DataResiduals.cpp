#include "analysis/DataResiduals.h"

#include <cmath>

#include "expr/CmpMod.h"

namespace vk {

DataResiduals::DataResiduals(Session& session, Dialogs& dialogs, std::span<const double> errors)
    : session_(session), dialogs_(dialogs), errors_(errors), model_(errors.size()) {}

void storeFreeValues(Session& session, std::span<const double> X) {
  int i = 0;
  for (double value : X) session.analysis.par.ParValues[session.analysis.par.FreeIndex[++i]] = value;
}

bool DataResiduals::ComputeResiduals(std::span<const double> X, std::span<double> F, double& sum) {
  storeFreeValues(session_, X);
  evaluateFunctionAt(session_, dialogs_, session_.loaded.data.Xpnt.span(1, session_.loaded.data.NumPnt),
                     model_);
  // QUIRK: each evaluation clears the flag, so that of a run over the data only the last point's is seen.
  if (!weigh(F, sum)) session_.ErrFlag = kTrue;
  return session_.ErrFlag == 0;
}

// Gives whether both statements of the last point worked; one that fails stores nothing.
bool DataResiduals::weigh(std::span<double> F, double& sum) const {
  const std::span<const double> y = session_.loaded.data.Ypnt.span(1, session_.loaded.data.NumPnt);
  bool worked = true;
  double total = 0;
  for (std::size_t j = 0; j < F.size(); ++j) {
    const double residual = (model_[j] - y[j]) / errors_[j];
    worked = errors_[j] != 0 && std::isfinite(residual);
    if (worked) F[j] = residual;
    const double grown = total + F[j] * F[j];
    if (std::isfinite(grown)) {
      total = grown;
    } else {
      worked = false;
    }
  }
  sum = total;
  return worked;
}

}  // namespace vk
