#pragma once

#include <vector>

#include "batch/FitResultFile.h"
#include "batch/ModelChoice.h"
#include "batch/ParameterValues.h"

namespace vk {

struct Session;

/// Makes the model the session's current one and enters values and errors of its parameters for a propagation: those
/// that a fit has found with their correlations, `others` are independent. Of a formula the parameters are what it
/// takes of the fit, in that order, and then the others. What is missing, or given twice, raises `UsageError`.
void enterFitted(Session& session, Files& files, const ModelArguments& model, const FittedParameters& fitted,
                 const std::vector<EnteredValue>& others);

}  // namespace vk
