#pragma once

#include "base/Array.h"
#include "platform/Dialogs.h"
#include "session/Session.h"

namespace vk {

/// The error of the model function by first-order propagation at the session's `ParValues`.
struct AnalyticErrors {
  double F0 = 0;              ///< value of the function
  Array<double> Derivatives;  ///< 0..ParCount, by central differences of a thousandth of each value
  double ErrorMax = 0;    ///< sum of the largest contributions; three standard deviations count as largest
  double ErrorSigma = 0;  ///< standard deviation; a maximum error a stands for a variance of a*a/3
};

/// Computes them. `ErrFlag` tells only whether the last evaluation, or a sum, failed; `ParValues` is as before.
AnalyticErrors analyticErrors(Session& session, Dialogs& dialogs);

}  // namespace vk
