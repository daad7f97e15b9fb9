#pragma once

#include <optional>

#include "base/Array.h"
#include "platform/Dialogs.h"
#include "session/Session.h"

namespace vk {

/// The usual errors of a least-squares solution, to be compared with those of other programs: square roots of
/// the diagonal of the inverse of J'J, J being the derivatives of the weighted residuals by the free
/// parameters at their present values. 1..N, in the order of the free parameters; nothing when J'J has no
/// inverse.
///
/// For use after a fit, with its chi-square: weights are the errors that it used. Its errors of the parameters
/// only set the size of the first differences, which shrink until the derivatives settle; where those of a
/// parameter do not, there is nothing to give. Points at which the model or its weight fails take no part.
/// `ParValues` and `ErrFlag` are left as they were.
std::optional<Array<double>> linearisedErrors(Session& session, Dialogs& dialogs, double chiSquare);

}  // namespace vk
