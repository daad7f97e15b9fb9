#pragma once

#include <vector>

#include "analysis/FitWarnings.h"
#include "platform/CharGrid.h"

namespace vk {

/// The true minimum with its errors, as a screen to be shown below that of the fit: figures, parameters, correlations
/// in per cent, and where there are any, the warnings. At least 80 columns hold up to 11 free parameters.
///
/// What has no number shows underscores: errors of constant parameters, values where the function failed. `refined`
/// comes from these data.
CharGrid refinedTable(const DataSet& data, const RefinedFit& refined,
                      const std::vector<FitWarning>& warnings);

}  // namespace vk
